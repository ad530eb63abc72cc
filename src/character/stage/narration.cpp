#include "character/stage/narration.h"

#include "character/stage/mouth_overlay.h"
#include "character/stage/mouth_shapes.h"

#include <utility>

namespace brovin::character {
namespace {

/// Without sounds to follow, the mouth takes another open position this often.
constexpr Milliseconds kShortestMouth{80};
constexpr std::size_t kMouthSpread = 41; // ms, so that the longest is 120

/// The part of a word's time in which the mouth moves; then it is closed, to tell the words apart.
constexpr int kMovingQuarters = 3;

/// In what is shown.
std::size_t firstWordEnd(const SpeechPlan& plan) {
    for (const ReadingStep& step : plan.steps)
        if (step.kind == ReadingStep::Kind::Word)
            return step.shownEnd;
    return plan.shown.size();
}

} // namespace

void Narration::begin(SpeechPlan plan, Moment now) {
    plan_ = std::move(plan);
    next_ = 0;
    voiceDone_ = false;
    due_ = wordEnd_ = mouthDue_ = now;
    if (plan_.hasWords)
        needs_.balloon.open(plan_.shown, firstWordEnd(plan_));
    if (voiceAvailable() && needs_.voice.say(plan_.runs, *this))
        pace_ = Pace::Voice;
    else
        pace_ = needs_.balloon.available() ? Pace::Reading : Pace::None;
    if (speaking())
        needs_.performer.setMouth(Mouth::Closed);
}

void Narration::stop() {
    if (!speaking())
        return;
    if (pace_ == Pace::Voice)
        needs_.voice.silence();
    pace_ = Pace::None;
    needs_.performer.setMouth(std::nullopt);
    needs_.balloon.hide();
}

Wake Narration::advance(Moment now) {
    if (pace_ == Pace::Reading)
        return read(now);
    if (voiceDone_)
        finish(now);
    return std::nullopt;
}

void Narration::wordReached(std::size_t offset) {
    std::size_t reached = 0;
    for (; next_ < plan_.steps.size() && plan_.steps[next_].spokenAt <= offset; ++next_)
        if (plan_.steps[next_].kind == ReadingStep::Kind::Word)
            reached = plan_.steps[next_].shownEnd;
    if (reached > 0)
        needs_.balloon.reveal(reached);
}

void Narration::soundReached(std::string_view ipa) {
    if (const auto mouth = mouthFor(ipa))
        needs_.performer.setMouth(mouth);
}

void Narration::bookmarkReached(std::int32_t bookmark) {
    needs_.events.add(event::BookmarkReached{bookmark});
}

void Narration::speechEnded() {
    voiceDone_ = true;
    needs_.attention.ask();
}

Wake Narration::read(Moment now) {
    if (now - due_ > kLongestCatchUp)
        due_ = now;
    while (due_ <= now && next_ < plan_.steps.size())
        readStep(plan_.steps[next_++]);
    if (due_ <= now) {
        finish(now);
        return std::nullopt;
    }
    return sooner(due_, moveMouth(now));
}

void Narration::readStep(const ReadingStep& step) {
    wordEnd_ = due_;
    mouthDue_ = due_;
    if (step.kind == ReadingStep::Kind::Bookmark)
        needs_.events.add(event::BookmarkReached{step.bookmark});
    if (step.kind == ReadingStep::Kind::Word) {
        needs_.balloon.reveal(step.shownEnd);
        wordEnd_ = due_ + step.time * kMovingQuarters / 4;
    }
    due_ += step.time;
}

Wake Narration::moveMouth(Moment now) {
    if (needs_.performer.still() || !needs_.performer.canSpeak())
        return std::nullopt;
    if (now >= wordEnd_) {
        needs_.performer.setMouth(Mouth::Closed);
        return std::nullopt;
    }
    if (now >= mouthDue_) {
        needs_.performer.setMouth(static_cast<Mouth>(1 + drawBelow(needs_.chance, kOpenMouths)));
        mouthDue_ = now + kShortestMouth + Milliseconds{drawBelow(needs_.chance, kMouthSpread)};
    }
    return sooner(mouthDue_, wordEnd_);
}

void Narration::finish(Moment now) {
    pace_ = Pace::None;
    voiceDone_ = false;
    needs_.performer.setMouth(std::nullopt);
    needs_.balloon.finish(now);
}

} // namespace brovin::character
