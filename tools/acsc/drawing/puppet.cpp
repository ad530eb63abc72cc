#include "acsc/drawing/puppet.h"

#include <QPainter>
#include <QSvgRenderer>

namespace brovin::acsc {

Puppet::Puppet(const Rig& rig, QSize size) : rig_(rig), size_(size) {
    for (const Rig::Layer& layer : rig.layers())
        layers_.push_back(std::make_unique<QSvgRenderer>(layer.svg));
}

Puppet::~Puppet() = default;

Picture Puppet::drawn(const Pose& pose) const {
    if (layers_.empty())
        return drawSvg(rig_.svg(pose), size_);
    return drawPicture(size_, [&](QPainter& painter, const QRectF& frame) {
        const double scale = frame.width() / size_.width();
        for (std::size_t i = 0; i < layers_.size(); ++i) {
            const auto part = rig_.layers()[i].part;
            if (part && !rig_.visible(pose, *part))
                continue;
            painter.setOpacity(part ? rig_.opacity(pose, *part) : 1);
            painter.setWorldTransform(part ? QTransform::fromScale(1 / scale, 1 / scale) *
                                                 rig_.movement(pose, *part) *
                                                 QTransform::fromScale(scale, scale)
                                           : QTransform());
            layers_[i]->render(&painter, frame);
        }
    });
}

} // namespace brovin::acsc
