#include "acsc/drawing/moving_picture.h"

#include "acsc/drawing/moving_png.h"
#include "character/bitmap.h"

#include <algorithm>
#include <set>

namespace brovin::acsc {
namespace {

constexpr std::size_t kMostFrames = 500;

const character::Animation* findAnimation(const character::CharacterData& data, const QString& name) {
    const auto found = std::find_if(data.animations.begin(), data.animations.end(), [&](const auto& one) {
        return QString::fromStdString(one.name).compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == data.animations.end() ? nullptr : &*found;
}

/// Where a frame leads by the likeliest of its ways.
std::size_t likeliest(const character::Animation& animation, std::size_t frame) {
    int left = 100;
    int best = 0;
    std::size_t to = frame + 1;
    for (const character::Branch& branch : animation.frames[frame].branches) {
        left -= branch.percent;
        if (branch.percent > best) {
            best = branch.percent;
            to = branch.frame;
        }
    }
    return left > best ? frame + 1 : to;
}

/// The frames that are shown, up to the end or to one that was there before.
std::vector<std::size_t> played(const character::Animation& animation) {
    std::vector<std::size_t> frames;
    std::set<std::size_t> been;
    for (std::size_t at = 0; at < animation.frames.size() && been.insert(at).second;
         at = likeliest(animation, at))
        if (animation.frames[at].duration.count() > 0 && frames.size() < kMostFrames)
            frames.push_back(at);
    return frames;
}

} // namespace

void exportAnimation(const character::CharacterData& data, const QString& animation, const QString& path,
                     Problems& problems) {
    if (!path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) {
        problems.add(path, QStringLiteral("the picture is an animated PNG: its name has to end in .png"));
        return;
    }
    const character::Animation* const found = findAnimation(data, animation);
    const std::vector<std::size_t> frames = found != nullptr ? played(*found) : std::vector<std::size_t>();
    if (frames.empty()) {
        problems.add(animation, QStringLiteral("there is no animation of this name, or it shows nothing"));
        return;
    }
    character::ImageStore images(data.images);
    character::FramePainter painter(data, images);
    character::Bitmap canvas;
    MovingPng picture;
    for (const std::size_t frame : frames) {
        painter.paint(found->frames[frame], nullptr, canvas);
        picture.add(canvas, found->frames[frame].duration.count());
    }
    picture.save(path, problems);
}

} // namespace brovin::acsc
