#include "acsc/drawing/film.h"

#include "acsc/movement/movement.h"

#include <algorithm>

namespace brovin::acsc {
namespace {

constexpr std::size_t kMouths = 7;

/// Whether a mouth leaves the frame's outline as it is, so that it can be laid over it.
bool keepsOutline(const Picture& frame, const Picture& mouth) {
    for (std::size_t i = 0; i < frame.pixels.size(); ++i)
        if ((frame.pixels[i] == 0) != (mouth.pixels[i] == 0))
            return false;
    return true;
}

Picture without(Picture picture, const Box& box) {
    for (int y = box.top; y < box.top + box.height; ++y)
        for (int x = box.left; x < box.left + box.width; ++x)
            picture.set(x, y, 0);
    return picture;
}

} // namespace

FilmedAnimation Camera::film(const AnimationSource& animation) {
    FilmedAnimation result;
    result.source = &animation;
    if (animation.fromRig) {
        result.poses = posesOf(animation, *source_.rig);
        checkEnds(animation, result.poses, *source_.rig, problems_);
    }
    std::vector<RouteFrame> route = planRoute(animation, result.poses, source_.rig.get());
    if (const QString frames = neverSeen(route); !frames.isEmpty())
        problems_.warn(animation.where, QStringLiteral("nothing leads to frame %1").arg(frames));
    for (RouteFrame& planned : route) {
        FilmedFrame frame;
        if (planned.source && animation.fromRig) {
            const bool speaks = animation.speaks && *planned.source == animation.standing();
            shoot(animation, result.poses[static_cast<std::size_t>(*planned.source)], speaks, frame);
        } else if (planned.source) {
            const FrameSource& source = animation.frames[static_cast<std::size_t>(*planned.source)];
            for (const PlacedFile& file : source.pictures)
                frame.pictures.push_back(fromFile(file, animation.where));
            for (const MouthFile& mouth : source.mouths)
                frame.mouths.push_back(
                    {mouth.mouth, mouth.replaces, fromFile(mouth.picture, animation.where)});
        }
        frame.route = std::move(planned);
        result.frames.push_back(std::move(frame));
    }
    return result;
}

const Picture& Camera::drawn(const Pose& pose) {
    QByteArray svg = source_.rig->svg(pose);
    if (svg != lastSvg_) {
        if (!puppet_)
            puppet_ = std::make_unique<Puppet>(*source_.rig, source_.size);
        last_ = puppet_->drawn(pose);
        lastSvg_ = std::move(svg);
    }
    return last_;
}

Picture Camera::whole(const FilmedAnimation& animation, int frame) {
    if (!animation.poses.empty())
        return drawn(animation.poses[static_cast<std::size_t>(frame)]);
    Picture canvas{source_.size.width(), source_.size.height(), {}};
    canvas.pixels.resize(static_cast<std::size_t>(canvas.width) * static_cast<std::size_t>(canvas.height));
    for (const FilmedFrame& filmed : animation.frames) {
        if (filmed.route.source != frame)
            continue;
        for (auto placed = filmed.pictures.rbegin(); placed != filmed.pictures.rend(); ++placed) {
            const Picture& picture = pictures_.all()[placed->picture];
            for (int y = std::max(0, -placed->y); y < std::min(picture.height, canvas.height - placed->y);
                 ++y)
                for (int x = std::max(0, -placed->x); x < std::min(picture.width, canvas.width - placed->x);
                     ++x)
                    if (const auto pixel = picture.at(x, y); pixel != 0)
                        canvas.set(x + placed->x, y + placed->y, pixel);
        }
    }
    return canvas;
}

PlacedPicture Camera::placed(const Picture& picture, const Box& box) {
    return {pictures_.add(cut(picture, box)), box.left, box.top};
}

void Camera::shoot(const AnimationSource& animation, const Pose& pose, bool speaks, FilmedFrame& frame) {
    const QByteArray key = (speaks ? "speaks " : "") + source_.rig->svg(pose);
    const auto known = shot_.find(key);
    if (known != shot_.end()) {
        frame = known->second;
        return;
    }
    const Picture& picture = drawn(pose);
    const Box content = contentOf(picture);
    if (!content.empty())
        frame.pictures.push_back(placed(picture, content));
    else if (speaks)
        problems_.add(animation.where, QStringLiteral("nothing is there to speak"));
    if (speaks && !content.empty())
        addMouths(pose, frame);
    shot_.emplace(key, frame);
}

/// Where an open mouth goes beyond the frame's outline, the frame is cut in two, and the mouths replace the
/// smaller piece: what is laid over a frame is only shown within its outline.
void Camera::addMouths(const Pose& pose, FilmedFrame& frame) {
    const Picture closed = drawn(pose);
    std::vector<Picture> drawings;
    for (std::size_t mouth = 0; mouth < kMouths; ++mouth) {
        Pose speaking = pose;
        speaking.choices[*source_.rig->mouthSwitch()] = mouth;
        drawings.push_back(drawn(speaking));
    }
    std::vector<const Picture*> all{&closed};
    for (const Picture& drawing : drawings)
        all.push_back(&drawing);
    const Box box = differenceOf(all);
    if (box.empty()) {
        problems_.add(QStringLiteral("character.json, mouths"), QStringLiteral("all mouths look the same"));
        return;
    }
    const bool replaces = !std::all_of(drawings.begin(), drawings.end(),
                                       [&](const Picture& drawing) { return keepsOutline(closed, drawing); });
    if (replaces) {
        const Picture rest = without(closed, box);
        const Box restBox = contentOf(rest);
        frame.pictures = {placed(closed, box)};
        if (!restBox.empty())
            frame.pictures.push_back(placed(rest, restBox));
    }
    for (std::size_t mouth = 0; mouth < kMouths; ++mouth)
        frame.mouths.push_back({mouth, replaces, placed(drawings[mouth], box)});
}

PlacedPicture Camera::fromFile(const PlacedFile& file, const QString& where) {
    const auto known = files_.find(file.file);
    if (known != files_.end())
        return {known->second, file.x, file.y};
    const QImage image(source_.folder.filePath(file.file));
    Picture picture{1, 1, {0}};
    if (image.isNull() || image.width() > 4096 || image.height() > 1024)
        problems_.add(where,
                      QStringLiteral("\"%1\" cannot be read as a picture, or is too large").arg(file.file));
    else
        picture = fromImage(image);
    const std::size_t index = pictures_.add(picture);
    files_[file.file] = index;
    return {index, file.x, file.y};
}

} // namespace brovin::acsc
