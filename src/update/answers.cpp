#include "update/answers.h"

#include "text/strings.h"

#include <algorithm>
#include <charconv>

namespace brovin::update {
namespace {

/// A number of decimal digits alone that fits its type, blanks around it passed over.
template <class Number>
std::optional<Number> wholeNumber(std::string_view text) {
    text = text.substr(0, text.find_last_not_of(" \r\n") + 1);
    text = text.substr(std::min(text.find_first_not_of(' '), text.size()));
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool digits = !text.empty() && text.front() >= '0' && text.front() <= '9';
    return digits && error == std::errc() && end == text.data() + text.size() ? std::optional(number)
                                                                              : std::nullopt;
}

std::string withoutLineEnd(std::string_view text) {
    return std::string(text.substr(0, text.find_last_not_of(" \r\n") + 1));
}

bool isPackVersion(std::string_view text) {
    constexpr std::size_t kLongest = 16;
    return !text.empty() && text.size() <= kLongest &&
           text.find_first_not_of("0123456789.") == std::string_view::npos;
}

bool isHex(char sign) {
    return (sign >= '0' && sign <= '9') || (sign >= 'a' && sign <= 'f');
}

} // namespace

std::string Version::text() const {
    return std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(revision);
}

std::optional<ProgramOffer> programOffer(std::string_view answer) {
    constexpr std::string_view kMark = "Version:";
    const std::size_t begin = answer.find(kMark.substr(0, kMark.size() - 1));
    if (begin == std::string_view::npos || answer.size() - begin < kMark.size())
        return std::nullopt;
    constexpr std::size_t kNeeded = 4;
    const auto fields = text::split(answer.substr(begin + kMark.size()), ',');
    if (fields.size() < kNeeded)
        return std::nullopt;
    const auto major = wholeNumber<std::int32_t>(fields[0]);
    const auto minor = wholeNumber<std::int32_t>(fields[1]);
    const auto revision = wholeNumber<std::int32_t>(fields[2]);
    if (!major || !minor || !revision)
        return std::nullopt;
    ProgramOffer offer{{*major, *minor, *revision}, withoutLineEnd(fields[3]), {}, {}};
    if (fields.size() > 4)
        offer.changes = withoutLineEnd(fields[4]);
    if (fields.size() > 5)
        offer.sizeKb = wholeNumber<std::int64_t>(fields[5]);
    return offer;
}

bool countsAsNewer(const Version& offered, const Version& running) {
    return offered.major > running.major || offered.minor > running.minor ||
           offered.revision > running.revision;
}

std::optional<PackOffer> packOffer(std::string_view answer) {
    if (!answer.starts_with("http:/"))
        return std::nullopt;
    const std::size_t comma = answer.find(',');
    if (comma == std::string_view::npos)
        return std::nullopt;
    PackOffer offer{std::string(answer.substr(0, comma)), withoutLineEnd(answer.substr(comma + 1))};
    return isPackVersion(offer.version) ? std::optional(offer) : std::nullopt;
}

std::optional<Statement> statementOf(std::string_view text) {
    constexpr std::size_t kLines = 4;
    constexpr std::size_t kHashDigits = 128;
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    const auto lines = text::split(text, '\n');
    if (lines.size() != kLines)
        return std::nullopt;
    const auto size = wholeNumber<std::uint64_t>(lines[1]);
    if (!size || lines[2].size() != kHashDigits || !std::all_of(lines[2].begin(), lines[2].end(), isHex))
        return std::nullopt;
    return Statement{std::string(lines[0]), *size, std::string(lines[2]), std::string(lines[3]),
                     std::string(text.substr(0, text.size() - lines[3].size()))};
}

std::string textToSign(std::string_view version, std::uint64_t size, std::string_view sha512) {
    return std::string(version) + "\n" + std::to_string(size) + "\n" + std::string(sha512) + "\n";
}

} // namespace brovin::update
