#include "character/stage/animation_player.h"

#include "character/stage/mouth_overlay.h"

#include <cmath>
#include <utility>

namespace brovin::character {
namespace {

/// Only a damaged animation goes through more frames than this without any time passing.
constexpr int kMostFramesAtOnce = 1000;
/// Who comes late catches up no further than this, however little time the frames take.
constexpr int kMostFramesInACall = 10'000;

} // namespace

void AnimationPlayer::play(const Animation& animation) {
    animation_ = &animation;
    at_.reset();
    due_.reset();
    running_ = true;
    leaving_ = false;
    strayed_ = false;
    hurried_ = false;
    pace_ = 1;
    mouth_.reset();
}

void AnimationPlayer::leave() {
    running_ = animation_ != nullptr && shownAnimation_ == animation_;
    if (!running_)
        return;
    at_ = shownIndex_;
    due_.reset();
    leaving_ = true;
    strayed_ = false;
    hurried_ = false;
    pace_ = 1;
    stepsOut_ = animation_->frames.size();
}

void AnimationPlayer::hurry(Milliseconds within) {
    if (!running_ || std::exchange(hurried_, true))
        return;
    sound_.reset();
    needs_.sounds.stop();
    const Milliseconds left = timeLeft(*animation_, at_, leaving_);
    if (left > within)
        pace_ = static_cast<double>(within.count()) / static_cast<double>(left.count());
}

void AnimationPlayer::pose(const Animation& animation, FrameIndex frame) {
    play(animation);
    cut();
    shownAnimation_ = &animation;
    shownIndex_ = frame;
    show(animation.frames[frame]);
}

void AnimationPlayer::clear() {
    cut();
    animation_ = nullptr;
    shownAnimation_ = nullptr;
    mouth_.reset();
    show(nothing_);
    shown_ = nullptr;
}

void AnimationPlayer::setMouth(std::optional<Mouth> mouth) {
    mouth_ = mouth;
    if (shown_ != nullptr && chooseOverlay(*shown_, mouth) != overlay_)
        show(*shown_);
}

Wake AnimationPlayer::advance(Moment now) {
    if (!running_)
        return std::nullopt;
    if (still_)
        return advanceStill(now);
    if (!due_ || now - *due_ > kLongestCatchUp)
        due_ = now;
    int steps = 0;
    for (int atOnce = 0; running_ && *due_ <= now;) {
        const Milliseconds time = step();
        if (++steps > kMostFramesInACall)
            due_ = now;
        atOnce = time.count() > 0 ? 0 : atOnce + 1;
        if (atOnce > kMostFramesAtOnce)
            running_ = false;
        *due_ += time;
    }
    showArrival(now);
    return running_ ? due_ : std::nullopt;
}

Wake AnimationPlayer::advanceStill(Moment now) {
    if (!at_) {
        const StillPose pose = stillPose(*animation_);
        at_ = arrival_ = pose.frame;
        if (!hurried_)
            sound_ = pose.sound;
        due_ = pose.time && pose.frame ? Wake(now + *pose.time) : std::nullopt;
        running_ = pose.frame.has_value();
    }
    if (leaving_ || hurried_ || (due_ && *due_ <= now))
        running_ = false;
    if (!running_)
        if (const auto last = lastPicture(*animation_))
            arrival_ = last;
    showArrival(now);
    return running_ ? due_ : std::nullopt;
}

/// Goes on to the next frame, or ends. How long the animation stands there.
Milliseconds AnimationPlayer::step() {
    if (leaving_ && stepsOut_-- == 0) {
        strayed_ = true;
        running_ = false;
        return Milliseconds{0};
    }
    std::optional<FrameIndex> next;
    if (!at_ && !animation_->frames.empty())
        next = FrameIndex{0};
    else if (at_)
        next = leaving_ ? nextFrameOut(*animation_, *at_, needs_.chance)
                        : nextFrame(*animation_, *at_, needs_.chance);
    if (!next) {
        running_ = false;
        return Milliseconds{0};
    }
    enter(*next);
    const Milliseconds time = animation_->frames[*next].duration;
    return hurried_ ? Milliseconds{std::lround(static_cast<double>(time.count()) * pace_)} : time;
}

void AnimationPlayer::enter(FrameIndex index) {
    at_ = index;
    const Frame& frame = animation_->frames[index];
    if (!isShown(frame))
        return;
    arrival_ = index;
    if (frame.sound && !hurried_)
        sound_ = frame.sound;
}

/// Of several frames that were entered in one call only the last is put on the screen, and of their sounds
/// only the last is started.
void AnimationPlayer::showArrival(Moment now) {
    if (arrival_) {
        shownAnimation_ = animation_;
        shownIndex_ = std::exchange(arrival_, std::nullopt);
        show(animation_->frames[*shownIndex_]);
    }
    if (sound_)
        needs_.sounds.start(*std::exchange(sound_, std::nullopt), now);
}

void AnimationPlayer::show(const Frame& frame) {
    shown_ = &frame;
    overlay_ = chooseOverlay(frame, mouth_);
    needs_.surface.showFrame(frame, overlay_);
}

} // namespace brovin::character
