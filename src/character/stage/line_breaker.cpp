#include "character/stage/line_breaker.h"

#include "character/stage/text_breaks.h"

#include <algorithm>

namespace brovin::character {
namespace {

/// No line is as long as this, in bytes. Longer pieces are not even measured, so that a megabyte without
/// blanks is not measured again for each of its lines.
constexpr std::size_t kMostLineBytes = 2048;

/// Of a word that has to be cut, this many bytes are looked at first.
constexpr std::size_t kFirstReach = 64;

class Paragraph {
public:
    Paragraph(std::string_view text, int width, const MeasureText& measure, std::vector<TextLine>& lines)
        : text_(text), width_(width), measure_(measure), lines_(lines) {}

    /// The part from `begin` to `end`, which has no line feeds.
    void breakUp(std::size_t begin, std::size_t end) {
        line_ = {begin, begin};
        for (std::size_t at = begin; at < end;) {
            at += leadingBlanks(text_.substr(at, end - at));
            const std::size_t wordEnd = at + leadingWord(text_.substr(at, end - at));
            if (wordEnd > at)
                add({at, wordEnd});
            at = wordEnd;
        }
        lines_.push_back(line_);
    }

private:
    void add(TextLine word) {
        if (line_.begin == line_.end) {
            line_ = word;
        } else if (fits({line_.begin, word.end})) {
            line_.end = word.end;
            return;
        } else {
            lines_.push_back(line_);
            line_ = word;
        }
        while (!fits(line_)) {
            const std::size_t cut = fittingPart(line_);
            if (cut == line_.end)
                return;
            lines_.push_back({line_.begin, cut});
            line_.begin = cut;
        }
    }

    [[nodiscard]] bool fits(TextLine line) const {
        const std::size_t bytes = line.end - line.begin;
        return bytes <= kMostLineBytes && measure_(text_.substr(line.begin, bytes)) <= width_;
    }

    /// Where to cut a word that does not fit: behind the most characters that do, or else behind the first.
    /// Looks no further ahead than about twice the line.
    [[nodiscard]] std::size_t fittingPart(TextLine word) const {
        const auto fitsUpTo = [&](std::size_t end) { return fits({word.begin, end}); };
        std::vector<std::size_t> ends;
        for (std::size_t reach = kFirstReach; reach <= kMostLineBytes; reach *= 2) {
            ends = characterEnds(word, reach);
            if (!fitsUpTo(ends.back()))
                break;
        }
        return *(std::partition_point(ends.begin() + 1, ends.end(), fitsUpTo) - 1);
    }

    /// Where the characters end that begin in the first `reach` bytes of a word.
    [[nodiscard]] std::vector<std::size_t> characterEnds(TextLine word, std::size_t reach) const {
        std::vector<std::size_t> ends;
        for (std::size_t at = word.begin; at < std::min(word.begin + reach, word.end);) {
            at += leadingCharacter(text_.substr(at, word.end - at));
            ends.push_back(at);
        }
        return ends;
    }

    std::string_view text_;
    int width_;
    const MeasureText& measure_;
    std::vector<TextLine>& lines_;
    TextLine line_;
};

} // namespace

std::vector<TextLine> breakLines(std::string_view text, int width, const MeasureText& measure) {
    std::vector<TextLine> lines;
    Paragraph paragraph(text, width, measure, lines);
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
        paragraph.breakUp(begin, end);
        const bool pair = text.substr(end).starts_with("\r\n");
        begin = end + (pair ? 2 : 1);
    }
    return lines;
}

} // namespace brovin::character
