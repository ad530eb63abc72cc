#include "character/stage/speech_plan.h"

#include "character/stage/text_breaks.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

namespace brovin::character {
namespace {

constexpr std::int32_t kReadingWordsPerMinute = 150;
constexpr double kUsualLetters = 7; // of a word with what surrounds it
constexpr double kShortestWord = 80;
constexpr double kLongestWord = 10'000;

std::size_t countLetters(std::string_view text) {
    std::size_t letters = 0;
    for (; !text.empty(); ++letters)
        text.remove_prefix(leadingCharacter(text));
    return letters;
}

struct Setter {
    SegmentKind kind;
    void (*set)(VoiceStyle& style, std::int32_t number);
};

constexpr Setter kSetters[] = {
    {SegmentKind::Emphasize, [](VoiceStyle& s, std::int32_t /*n*/) { s.emphasis = Emphasis::Strong; }},
    {SegmentKind::Deemphasize, [](VoiceStyle& s, std::int32_t /*n*/) { s.emphasis = Emphasis::Reduced; }},
    {SegmentKind::Tone, [](VoiceStyle& s, std::int32_t n) { s.tone = static_cast<Tone>(n); }},
    {SegmentKind::Pitch, [](VoiceStyle& s, std::int32_t n) { s.pitchHertz = n; }},
    {SegmentKind::PitchPercent, [](VoiceStyle& s, std::int32_t n) { s.pitchPercent = n; }},
    {SegmentKind::Speed, [](VoiceStyle& s, std::int32_t n) { s.wordsPerMinute = n; }},
    {SegmentKind::SpeedPercent, [](VoiceStyle& s, std::int32_t n) { s.speedPercent = n; }},
    {SegmentKind::Volume, [](VoiceStyle& s, std::int32_t n) { s.volume = n; }},
    {SegmentKind::Melody, [](VoiceStyle& s, std::int32_t n) { s.melody = n != 0; }},
    {SegmentKind::Spelling, [](VoiceStyle& s, std::int32_t n) { s.spelled = n != 0; }},
    {SegmentKind::WordPauses, [](VoiceStyle& s, std::int32_t n) { s.wordPauses = n != 0; }},
};

/// Repetitions change nothing: they are resolved before a plan is made.
void applySetting(const SpeechSegment& segment, VoiceStyle& style) {
    for (const Setter& row : kSetters)
        if (row.kind == segment.kind)
            row.set(style, segment.number);
}

class Planner {
public:
    explicit Planner(const VoiceStyle& base) : base_(base), style_(base) {}

    SpeechPlan plan(const std::vector<SpeechSegment>& segments) {
        for (const SpeechSegment& segment : segments)
            take(segment);
        endWord();
        return std::move(plan_);
    }

private:
    void take(const SpeechSegment& segment) {
        switch (segment.kind) {
        case SegmentKind::Text:
            return addText(segment.spoken);
        case SegmentKind::Substitute:
            beginWord();
            return add(segment.spoken, segment.shown);
        case SegmentKind::Bookmark:
            return addBookmark(segment.number);
        case SegmentKind::Pause:
            return addPause(Milliseconds{segment.number});
        case SegmentKind::Reset:
            style_ = base_;
            return;
        default:
            return applySetting(segment, style_);
        }
    }

    void addText(std::string_view text) {
        while (!text.empty()) {
            if (const std::size_t blanks = leadingBlanks(text); blanks > 0) {
                endWord();
                style_.emphasis = Emphasis::None; // it holds for one word only
                add(text.substr(0, blanks), text.substr(0, blanks));
                text.remove_prefix(blanks);
            }
            if (const std::size_t word = leadingWord(text); word > 0) {
                beginWord();
                add(text.substr(0, word), text.substr(0, word));
                text.remove_prefix(word);
            }
        }
    }

    void add(std::string_view spoken, std::string_view shown) {
        plan_.shown += shown;
        if (spoken.empty())
            return;
        if (plan_.runs.empty() || plan_.runs.back().style != style_)
            openRun();
        plan_.runs.back().text += spoken;
        spokenBytes_ += spoken.size();
    }

    /// Makes the last run one that nothing has been said in yet, in the present style.
    void openRun() {
        if (plan_.runs.empty() || !plan_.runs.back().text.empty())
            plan_.runs.push_back({style_, {}, Milliseconds{0}, {}, spokenBytes_});
        plan_.runs.back().style = style_;
    }

    void addBookmark(std::int32_t bookmark) {
        openRun();
        if (plan_.runs.back().pause.count() > 0) // the bookmark is behind it
            plan_.runs.push_back({style_, {}, Milliseconds{0}, {}, spokenBytes_});
        plan_.runs.back().bookmarks.push_back(bookmark);
        plan_.steps.push_back({ReadingStep::Kind::Bookmark, spokenBytes_, 0, Milliseconds{0}, bookmark});
    }

    void addPause(Milliseconds time) {
        openRun();
        plan_.runs.back().pause += time;
        plan_.steps.push_back({ReadingStep::Kind::Silence, spokenBytes_, 0, time, 0});
    }

    void beginWord() {
        if (word_)
            return;
        word_ = plan_.steps.size();
        wordBegin_ = plan_.shown.size();
        wordStyle_ = style_;
        plan_.steps.push_back({ReadingStep::Kind::Word, spokenBytes_, 0, Milliseconds{0}, 0});
    }

    void endWord() {
        if (!word_)
            return;
        ReadingStep& step = plan_.steps[*std::exchange(word_, std::nullopt)];
        step.shownEnd = plan_.shown.size();
        plan_.hasWords = plan_.hasWords || step.shownEnd > wordBegin_;
        step.time = readingTime(countLetters(std::string_view(plan_.shown).substr(wordBegin_)), wordStyle_);
    }

    VoiceStyle base_;
    VoiceStyle style_;
    SpeechPlan plan_;
    std::size_t spokenBytes_ = 0;
    std::optional<std::size_t> word_; ///< the step of the word that has not ended yet
    std::size_t wordBegin_ = 0;
    VoiceStyle wordStyle_;
};

} // namespace

Milliseconds readingTime(std::size_t letters, const VoiceStyle& style) {
    const double wordsPerMinute =
        style.wordsPerMinute.value_or(kReadingWordsPerMinute) * (style.speedPercent / 100.0);
    const double time = 60'000 / wordsPerMinute * ((static_cast<double>(letters) + 2) / kUsualLetters);
    return Milliseconds{std::lround(std::clamp(time, kShortestWord, kLongestWord))};
}

SpeechPlan planSpeech(const std::vector<SpeechSegment>& segments, const VoiceStyle& base) {
    return Planner(base).plan(segments);
}

} // namespace brovin::character
