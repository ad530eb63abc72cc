#include "acsc/movement/movement.h"

#include "acsc/movement/easing.h"

#include <algorithm>
#include <cmath>

namespace brovin::acsc {
namespace {

using Field = double Placement::*;

Placement between(const Placement& a, const Placement& b, double part) {
    Placement result;
    for (const Field field : kPlacementFields)
        result.*field = a.*field + (b.*field - a.*field) * part;
    result.opacity = std::clamp(result.opacity, 0.0, 1.0);
    return result;
}

/// The poses that the tracks start from: by the keys of whole poses, else the one that it begins with, from
/// the frame where it stands on the one that it ends with, and neutral behind that.
class Base {
public:
    Base(const AnimationSource& animation, const Rig& rig) : animation_(animation), rig_(rig) {}

    Pose at(double time) const {
        if (animation_.poses.empty())
            return standing(time);
        const auto& keys = animation_.poses;
        const auto next =
            std::find_if(keys.begin(), keys.end(), [=](const PoseKey& key) { return key.at > time; });
        if (next == keys.end())
            return *keys.back().pose;
        const bool first = next == keys.begin();
        const Pose& from = first ? *animation_.begin : *(next - 1)->pose;
        const double since = first ? 0 : (next - 1)->at;
        const double part = eased(next->ease, (time - since) / (next->at - since));
        Pose pose = from; // switches change when the way is done
        for (std::size_t i = 0; i < pose.parts.size(); ++i)
            pose.parts[i] = between(from.parts[i], next->pose->parts[i], part);
        return pose;
    }

private:
    Pose standing(double time) const {
        const int stands = animation_.standing();
        if (animation_.loop)
            return time < animation_.length() - 1 || animation_.end == nullptr ? *animation_.begin
                                                                               : *animation_.end;
        if (time < stands || animation_.end == nullptr)
            return *animation_.begin;
        return time > stands ? rig_.neutral() : *animation_.end;
    }

    const AnimationSource& animation_;
    const Rig& rig_;
};

/// One field of a part over the time of an animation.
class Channel {
public:
    Channel(const Track& track, std::size_t field, const Base& base)
        : track_(track), field_(field), base_(base) {
        named_ = std::any_of(track.keys.begin(), track.keys.end(),
                             [=](const TrackKey& key) { return key.to.fields[field].has_value(); });
    }

    double at(double time) const {
        if (!named_)
            return baseValue(time);
        const auto& keys = track_.keys;
        const auto next =
            std::find_if(keys.begin(), keys.end(), [=](const TrackKey& key) { return key.at >= time; });
        if (next == keys.end())
            return value(keys.back());
        if (next->at <= time)
            return value(*next);
        const bool first = next == keys.begin();
        const double since = first ? 0 : (next - 1)->at;
        const double from = first ? baseValue(0) : value(*(next - 1));
        return from + (value(*next) - from) * eased(next->ease, (time - since) / (next->at - since));
    }

private:
    double baseValue(double time) const {
        return base_.at(time).parts[track_.part].*kPlacementFields[field_];
    }
    double value(const TrackKey& key) const { return key.to.fields[field_].value_or(baseValue(key.at)); }

    const Track& track_;
    std::size_t field_;
    const Base& base_;
    bool named_;
};

void switchAt(const SwitchTrack& track, int frame, Pose& pose) {
    for (const SwitchKey& key : track.keys)
        if (key.at <= frame)
            pose.choices[track.switchIndex] = key.choice;
}

QString describe(const Rig& rig, const Pose& is, const Pose& wanted) {
    const char* const fields[] = {"x", "y", "rotate", "scaleX", "scaleY", "opacity"};
    for (std::size_t p = 0; p < is.parts.size(); ++p) {
        if (!rig.visible(is, p) && !rig.visible(wanted, p))
            continue; // a prop that is switched off may be anywhere
        for (std::size_t f = 0; f < kPlacementFieldCount; ++f) {
            const double has = is.parts[p].*kPlacementFields[f];
            const double wants = wanted.parts[p].*kPlacementFields[f];
            if (std::abs(has - wants) > 1e-6)
                return QStringLiteral("%1.%2 is %3 and should be %4")
                    .arg(rig.parts()[p].name, QLatin1String(fields[f]))
                    .arg(has)
                    .arg(wants);
        }
    }
    for (std::size_t s = 0; s < is.choices.size(); ++s)
        if (is.choices[s] != wanted.choices[s])
            return QStringLiteral("switch %1 is \"%2\" and should be \"%3\"")
                .arg(rig.switches()[s].name,
                     rig.switches()[s].choices.at(static_cast<qsizetype>(is.choices[s])),
                     rig.switches()[s].choices.at(static_cast<qsizetype>(wanted.choices[s])));
    return {};
}

} // namespace

std::vector<Pose> posesOf(const AnimationSource& animation, const Rig& rig) {
    const Base base(animation, rig);
    std::vector<Pose> poses;
    for (int frame = 0; frame < animation.length(); ++frame) {
        Pose pose = base.at(frame);
        // Without keys of whole poses a part that nothing moves keeps its place, rather than jump to the
        // end's.
        if (animation.poses.empty()) {
            pose = *animation.begin;
        }
        for (const Track& track : animation.tracks)
            for (std::size_t field = 0; field < kPlacementFieldCount; ++field)
                pose.parts[track.part].*kPlacementFields[field] = Channel(track, field, base).at(frame);
        for (const SwitchTrack& track : animation.switches)
            switchAt(track, frame, pose);
        for (Placement& part : pose.parts)
            part.opacity = std::clamp(part.opacity, 0.0, 1.0);
        poses.push_back(std::move(pose));
    }
    return poses;
}

void checkEnds(const AnimationSource& animation, const std::vector<Pose>& poses, const Rig& rig,
               Problems& problems) {
    const auto expect = [&](int frame, const Pose& wanted, const QString& poseName) {
        const QString difference = describe(rig, poses[static_cast<std::size_t>(frame)], wanted);
        if (!difference.isEmpty())
            problems.add(animation.where, QStringLiteral("frame %1 is not in the pose \"%2\": %3")
                                              .arg(frame)
                                              .arg(poseName, difference));
    };
    const int last = animation.length() - 1;
    expect(0, *animation.begin, animation.beginName);
    if (animation.end != nullptr)
        expect(animation.standing(), *animation.end, animation.endName);
    const bool wayBack = animation.holds && *animation.holds < last;
    if (wayBack || (animation.loop && animation.end == nullptr))
        expect(last, rig.neutral(), QStringLiteral("neutral"));
}

Jump jumpBetween(const Pose& a, const Pose& b, const Rig& rig) {
    Jump jump;
    for (std::size_t p = 0; p < rig.parts().size(); ++p) {
        if (!rig.visible(a, p) || !rig.visible(b, p))
            continue;
        const QRectF& bounds = rig.parts()[p].bounds;
        const QTransform from = rig.movement(a, p);
        const QTransform to = rig.movement(b, p);
        for (const QPointF& corner :
             {bounds.topLeft(), bounds.topRight(), bounds.bottomLeft(), bounds.bottomRight()}) {
            const QPointF way = to.map(corner) - from.map(corner);
            const double pixels = std::hypot(way.x(), way.y());
            if (pixels > jump.pixels + 1e-9)
                jump = {pixels, p};
        }
    }
    return jump;
}

} // namespace brovin::acsc
