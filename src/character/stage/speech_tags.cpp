#include "character/stage/speech_tags.h"

#include "character/letter_case.h"
#include "character/stage/spoken_run.h"
#include "character/stage/tag_scan.h"
#include "character/stage/text_breaks.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <utility>

namespace brovin::character {
namespace {

constexpr std::int32_t kLastBookmark = 2147483645; // the two above it have a meaning of their own

enum class Parameter : std::uint8_t { None, Number, Bookmark, Tone, Substitute, Ignored };

struct TagRule {
    std::string_view name; ///< in small letters
    Parameter parameter;
    SegmentKind kind = SegmentKind::Text;
    std::int32_t lowest = 0;
    std::int32_t highest = 0;
};

constexpr TagRule kRules[] = {
    {"chr", Parameter::Tone, SegmentKind::Tone},
    {"dem", Parameter::None, SegmentKind::Deemphasize},
    {"emp", Parameter::None, SegmentKind::Emphasize},
    {"lst", Parameter::None, SegmentKind::Repeat},
    {"map", Parameter::Substitute, SegmentKind::Substitute},
    {"mrk", Parameter::Bookmark, SegmentKind::Bookmark, 1, kLastBookmark},
    {"pau", Parameter::Number, SegmentKind::Pause, 0, 60'000},
    {"pit", Parameter::Number, SegmentKind::Pitch, 40, 500},
    {"pro", Parameter::Number, SegmentKind::Melody, 0, 1},
    {"rms", Parameter::Number, SegmentKind::Spelling, 0, 1},
    {"rmw", Parameter::Number, SegmentKind::WordPauses, 0, 1},
    {"rpit", Parameter::Number, SegmentKind::PitchPercent, 25, 400},
    {"rspd", Parameter::Number, SegmentKind::SpeedPercent, 25, 400},
    {"rst", Parameter::None, SegmentKind::Reset},
    {"spd", Parameter::Number, SegmentKind::Speed, 50, 400},
    {"vol", Parameter::Number, SegmentKind::Volume, 0, 65'535},
};
/// Comments, hints for other engines, choice of voice, context and so on: recognised and left out.
constexpr TagRule kNoEffect{"", Parameter::Ignored};

const TagRule& ruleFor(std::string_view name) {
    const std::string folded = foldedCase(name);
    const auto* const found = std::find_if(std::begin(kRules), std::end(kRules),
                                           [&folded](const TagRule& rule) { return rule.name == folded; });
    return found == std::end(kRules) ? kNoEffect : *found;
}

/// A number of any length; what does not fit becomes the greatest or least that does. nullopt: not a number.
std::optional<std::int64_t> parseNumber(std::string_view text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [behind, problem] = std::from_chars(text.data(), end, number);
    if (behind != end || text.empty() || problem == std::errc::invalid_argument)
        return std::nullopt;
    using Limits = std::numeric_limits<std::int64_t>;
    if (problem == std::errc::result_out_of_range)
        return text.front() == '-' ? Limits::min() : Limits::max();
    return number;
}

std::int32_t toneNamed(std::string_view name) {
    const std::string folded = foldedCase(withoutQuotes(name));
    Tone tone = Tone::Normal;
    if (folded == "monotone")
        tone = Tone::Monotone;
    if (folded == "whisper")
        tone = Tone::Whisper;
    return static_cast<std::int32_t>(tone);
}

/// What a tag asks for; nullopt: nothing.
std::optional<SpeechSegment> segmentFor(const TagRule& rule, std::string_view value) {
    SpeechSegment segment{rule.kind, 0, {}, {}};
    switch (rule.parameter) {
    case Parameter::Ignored:
        return std::nullopt;
    case Parameter::None:
        return segment;
    case Parameter::Tone:
        segment.number = toneNamed(value);
        return segment;
    case Parameter::Substitute:
        if (!readSubstitution(value, segment.spoken, segment.shown))
            return std::nullopt;
        return segment;
    case Parameter::Number:
    case Parameter::Bookmark:
        break;
    }
    const auto number = parseNumber(value);
    if (!number)
        return std::nullopt;
    const auto held = std::clamp<std::int64_t>(*number, rule.lowest, rule.highest);
    if (rule.parameter == Parameter::Bookmark && held != *number)
        return std::nullopt;
    segment.number = static_cast<std::int32_t>(held);
    return segment;
}

class Parser {
public:
    std::vector<SpeechSegment> parse(std::string_view text) {
        while (!text.empty()) {
            const std::size_t plain = std::min(text.find('\\'), text.size());
            plain_ += text.substr(0, plain);
            text.remove_prefix(plain);
            if (!text.empty())
                text.remove_prefix(takeTag(text));
        }
        flush();
        return std::move(segments_);
    }

private:
    /// How much of a text that begins with a backslash is done with.
    std::size_t takeTag(std::string_view text) {
        if (text.starts_with(R"(\\)")) {
            plain_ += '\\';
            return 2;
        }
        const TagScan tag = scanTag(text);
        if (tag.kind == TagScan::Kind::NotATag) {
            plain_ += '\\';
            return 1;
        }
        if (tag.kind == TagScan::Kind::Unclosed) {
            plain_ += unescaped(text);
            return text.size();
        }
        if (auto segment = segmentFor(ruleFor(tag.name), tag.value)) {
            flush();
            segments_.push_back(std::move(*segment));
        }
        return tag.bytes;
    }

    void flush() {
        if (plain_.empty())
            return;
        segments_.push_back({SegmentKind::Text, 0, plain_, plain_});
        plain_.clear();
    }

    std::vector<SpeechSegment> segments_;
    std::string plain_;
};

} // namespace

std::vector<SpeechSegment> parseSpeech(std::string_view text) {
    return Parser().parse(text);
}

Repetition repetitionIn(const std::vector<SpeechSegment>& segments) {
    std::size_t repeats = 0;
    std::size_t others = 0;
    for (const SpeechSegment& segment : segments)
        if (segment.kind == SegmentKind::Repeat)
            ++repeats;
        else if (segment.kind != SegmentKind::Text || leadingBlanks(segment.spoken) != segment.spoken.size())
            ++others;
    if (repeats == 0)
        return Repetition::None;
    return repeats == 1 && others == 0 ? Repetition::Alone : Repetition::Mixed;
}

} // namespace brovin::character
