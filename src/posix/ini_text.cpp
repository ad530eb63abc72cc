#include "posix/ini_text.h"

#include "text/utf8.h"

#include <cstdint>
#include <optional>

namespace brovin::posix {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
/// Letters behind a backslash, and what they stand for.
constexpr std::string_view kEscapeLetters = "abfnrtv\"\\?'";
constexpr std::string_view kEscaped = "\a\b\f\n\r\t\v\"\\?'";

std::size_t digitValue(char c) {
    return kHexDigits.find(static_cast<char>(c >= 'a' && c <= 'f' ? c - 'a' + 'A' : c));
}

bool isHexDigit(char c) {
    return digitValue(c) != std::string_view::npos;
}

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view withoutBlanks(std::string_view line) {
    while (!line.empty() && isBlank(line.front()))
        line.remove_prefix(1);
    while (!line.empty() && isBlank(line.back()))
        line.remove_suffix(1);
    return line;
}

/// Nor with the mark of UTF-8, which stands before any line of a file that was put together of several: in
/// front of all it would be taken for the file's.
std::string_view withoutMarks(std::string_view line) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    line = withoutBlanks(line);
    while (line.starts_with(kMark))
        line = withoutBlanks(line.substr(kMark.size()));
    return line;
}

void appendHex(std::string& to, unsigned number, int digits) {
    for (int i = digits - 1; i >= 0; --i)
        to.push_back(kHexDigits[number >> (4 * i) & 15U]);
}

/// Reads one value from its beginning to its end.
class ValueReader {
public:
    explicit ValueReader(std::string_view value) : value_(value) {}

    std::string read() {
        skipBlanks();
        while (at_ < value_.size()) {
            const char c = value_[at_++];
            if (c == '\\')
                takeEscape();
            else if (c == '"')
                takeQuote();
            else if (c == ',' && !quoted_)
                takeComma();
            else
                take(c);
        }
        dropTrailingBlanks();
        return std::move(text_);
    }

private:
    void skipBlanks() {
        while (at_ < value_.size() && isBlank(value_[at_]))
            ++at_;
    }
    /// Blanks that were neither quoted nor escaped belong to the layout.
    void dropTrailingBlanks() {
        while (text_.size() > keep_ && isBlank(text_.back()))
            text_.pop_back();
    }
    void take(char c) {
        text_.push_back(c);
        if (quoted_)
            keep_ = text_.size();
    }
    void takeQuote() {
        quoted_ = !quoted_;
        keep_ = text_.size();
        if (!quoted_)
            skipBlanks();
    }
    void takeComma() {
        dropTrailingBlanks();
        text_ += ", ";
        keep_ = text_.size();
        skipBlanks();
    }
    void takeEscape() {
        if (at_ == value_.size())
            return;
        const char letter = value_[at_++];
        const std::size_t known = kEscapeLetters.find(letter);
        if (known != std::string_view::npos)
            text_.push_back(kEscaped[known]);
        else if (letter == 'x' && at_ < value_.size() && isHexDigit(value_[at_]))
            takeUnit(number(16));
        else if (letter >= '0' && letter <= '7') {
            --at_;
            takeUnit(number(8));
        }
        keep_ = text_.size();
    }
    std::uint16_t number(std::size_t base) {
        std::size_t unit = 0;
        while (at_ < value_.size() && digitValue(value_[at_]) < base)
            unit = (unit * base + digitValue(value_[at_++])) & 0xFFFFU;
        return static_cast<std::uint16_t>(unit);
    }
    /// A number is a unit of UTF-16: what lies beyond U+FFFF comes as two of them.
    void takeUnit(std::uint16_t unit) {
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        const bool low = unit >= 0xDC00 && unit < 0xE000;
        if (high)
            high_ = unit;
        else if (low && high_)
            text::appendUtf8(text_, 0x10000U + ((*high_ - 0xD800U) << 10U) + (unit - 0xDC00U));
        else
            text::appendUtf8(text_, low ? U'\uFFFD' : unit);
        if (!high)
            high_.reset();
    }

    std::string_view value_;
    std::size_t at_ = 0;
    std::string text_;
    std::size_t keep_ = 0; ///< how much of the text is not to lose its blanks
    bool quoted_ = false;
    std::optional<std::uint16_t> high_;
};

/// The toolkit marks values that are no plain texts by "@", and doubles that of a text.
std::string withoutMark(std::string text) {
    constexpr std::string_view kString = "@String(";
    if (text.starts_with("@@"))
        return text.substr(1);
    if (text.starts_with(kString) && text.ends_with(')'))
        return text.substr(kString.size(), text.size() - kString.size() - 1);
    return text;
}

} // namespace

std::string iniValue(std::string_view text) {
    std::string value(text.starts_with('@') ? "@" : "");
    bool quotes = text.starts_with(' ') || text.ends_with(' ');
    bool afterNumber = false; // a digit would be taken for a part of it
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const std::size_t known = kEscaped.substr(0, kEscaped.find('?')).find(c);
        const bool named = known != std::string_view::npos;
        const bool number = !named && (byte < ' ' || (afterNumber && isHexDigit(c)));
        quotes = quotes || c == ';' || c == ',' || c == '=';
        if (named)
            value.append({'\\', kEscapeLetters[known]});
        else if (number)
            appendHex(value += "\\x", byte, 2);
        else
            value.push_back(c);
        afterNumber = number;
    }
    return quotes ? '"' + value + '"' : value;
}

std::string textOfIniValue(std::string_view value) {
    return withoutMark(ValueReader(value).read());
}

std::string iniKey(std::string_view text) {
    std::string key;
    while (!text.empty()) {
        const text::Decoded next = text::decodeUtf8(text);
        const char c = text.front();
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                           c == '_' || c == '-' || c == '.';
        if (plain)
            key.push_back(c);
        else if (next.codePoint <= 0xFF)
            appendHex(key += '%', next.codePoint, 2);
        else if (next.codePoint <= 0xFFFF)
            appendHex(key += "%U", next.codePoint, 4);
        else {
            appendHex(key += "%U", 0xD800U + ((next.codePoint - 0x10000U) >> 10U), 4);
            appendHex(key += "%U", 0xDC00U + ((next.codePoint - 0x10000U) & 0x3FFU), 4);
        }
        text.remove_prefix(next.bytes);
    }
    return key;
}

SoundLines soundLines(std::string_view file) {
    constexpr std::string_view kEnds("\r\n\0", 3); // a zero byte is the end of the file to many
    SoundLines sound{{}, file.find('\0') != std::string_view::npos};
    bool nowhere = false; // nobody knows whose keys follow a section that was cut off
    while (!file.empty()) {
        const std::size_t end = file.find_first_of(kEnds);
        const std::string_view line = withoutMarks(file.substr(0, end));
        file.remove_prefix(end == std::string_view::npos ? file.size() : end + 1);
        const bool remark = line.empty() || line.starts_with(';') || line.starts_with('#');
        const bool section = line.starts_with('[') && line.find(']') != std::string_view::npos;
        const bool keyed =
            !line.starts_with('[') && !line.starts_with('=') && line.find('=') != std::string_view::npos;
        if (line.starts_with('['))
            nowhere = !section;
        if (remark || section || (keyed && !nowhere))
            sound.text.append(line).push_back('\n');
        else
            sound.lost = true;
    }
    return sound;
}

} // namespace brovin::posix
