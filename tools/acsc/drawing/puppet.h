#pragma once

#include "acsc/drawing/picture.h"
#include "acsc/sources/rig.h"

#include <QSize>

#include <memory>
#include <vector>

class QSvgRenderer;

namespace brovin::acsc {

/// Draws a rig in pose after pose. Its layers are read once: reading the text of the whole drawing for each
/// pose takes a third of the time of drawing it.
class Puppet {
public:
    /// `rig` must outlive the puppet.
    Puppet(const Rig& rig, QSize size);
    ~Puppet();
    Puppet(const Puppet&) = delete;
    Puppet& operator=(const Puppet&) = delete;

    [[nodiscard]] Picture drawn(const Pose& pose) const;

private:
    const Rig& rig_;
    QSize size_;
    std::vector<std::unique_ptr<QSvgRenderer>> layers_; ///< by the rig's layers
};

} // namespace brovin::acsc
