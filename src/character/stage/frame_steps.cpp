#include "character/stage/frame_steps.h"

#include <algorithm>
#include <cstddef>

namespace brovin::character {
namespace {

constexpr std::size_t kWhole = 100; // per cent

/// nullopt: the draw falls to the next frame in order.
std::optional<FrameIndex> drawBranch(const Frame& frame, platform::Random& chance) {
    if (frame.branches.empty())
        return std::nullopt;
    const std::size_t draw = drawBelow(chance, kWhole);
    std::size_t total = 0;
    for (const Branch& branch : frame.branches) {
        total += branch.percent;
        if (total > draw)
            return branch.frame;
    }
    return std::nullopt;
}

/// nullopt: the animation is over.
std::optional<FrameIndex> likelyNext(const Animation& animation, FrameIndex frame, bool leaving) {
    const Frame& from = animation.frames[frame];
    if (leaving && from.exitFrame)
        return from.exitFrame;
    for (const Branch& branch : from.branches)
        if (branch.percent > kWhole / 2)
            return branch.frame;
    const std::size_t next = std::size_t{frame} + 1;
    return next < animation.frames.size() ? std::optional(static_cast<FrameIndex>(next)) : std::nullopt;
}

} // namespace

bool isShown(const Frame& frame) {
    return !frame.images.empty() || frame.duration.count() > 0;
}

std::optional<FrameIndex> nextFrame(const Animation& animation, FrameIndex frame, platform::Random& chance) {
    if (const auto target = drawBranch(animation.frames[frame], chance))
        return target;
    const std::size_t next = std::size_t{frame} + 1;
    return next < animation.frames.size() ? std::optional(static_cast<FrameIndex>(next)) : std::nullopt;
}

std::optional<FrameIndex> nextFrameOut(const Animation& animation, FrameIndex frame,
                                       platform::Random& chance) {
    const auto& exit = animation.frames[frame].exitFrame;
    return exit ? exit : nextFrame(animation, frame, chance);
}

Milliseconds timeLeft(const Animation& animation, std::optional<FrameIndex> frame, bool leaving) {
    Milliseconds time{0};
    for (std::size_t steps = 0; steps < animation.frames.size(); ++steps) {
        std::optional<FrameIndex> next = FrameIndex{0};
        if (frame)
            next = likelyNext(animation, *frame, leaving);
        if (!next)
            break;
        time += animation.frames[*next].duration;
        frame = next;
    }
    return time;
}

StillPose stillPose(const Animation& animation) {
    StillPose pose;
    const Milliseconds half = timeLeft(animation, std::nullopt, false) / 2;
    Milliseconds time{0};
    std::optional<FrameIndex> at;
    if (!animation.frames.empty())
        at = FrameIndex{0};
    for (std::size_t steps = 0; at && steps < animation.frames.size(); ++steps) {
        const Frame& frame = animation.frames[*at];
        if (!frame.images.empty() && (time <= half || !pose.frame))
            pose.frame = at;
        if (!pose.sound && isShown(frame))
            pose.sound = frame.sound;
        time += frame.duration;
        at = likelyNext(animation, *at, false);
    }
    pose.time = at ? std::nullopt : std::optional(time);
    if (animation.transition == Transition::ReturnAnimation)
        pose.frame = lastPicture(animation);
    return pose;
}

bool hasExits(const Animation& animation) {
    return std::any_of(animation.frames.begin(), animation.frames.end(),
                       [](const Frame& frame) { return frame.exitFrame.has_value(); });
}

std::optional<FrameIndex> lastPicture(const Animation& animation) {
    const auto& frames = animation.frames;
    const auto found = std::find_if(frames.rbegin(), frames.rend(),
                                    [](const Frame& frame) { return !frame.images.empty(); });
    if (found == frames.rend())
        return std::nullopt;
    return static_cast<FrameIndex>(frames.rend() - found - 1);
}

} // namespace brovin::character
