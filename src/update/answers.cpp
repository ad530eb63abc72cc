#include "update/answers.h"

#include "text/numbers.h"
#include "text/strings.h"

#include <algorithm>

namespace brovin::update {
namespace {

/// A whole number, blanks around it passed over.
template <class Number>
std::optional<Number> numberIn(std::string_view text) {
    text = text.substr(0, text.find_last_not_of(" \r\n") + 1);
    return text::wholeNumber<Number>(text.substr(std::min(text.find_first_not_of(' '), text.size())));
}

std::string withoutLineEnd(std::string_view text) {
    return std::string(text.substr(0, text.find_last_not_of(" \r\n") + 1));
}

bool isPackVersion(std::string_view text) {
    constexpr std::size_t kLongest = 16;
    return !text.empty() && text.size() <= kLongest &&
           text.find_first_not_of("0123456789.") == std::string_view::npos;
}

} // namespace

std::string Version::text() const {
    return std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(revision);
}

std::optional<ProgramOffer> programOffer(std::string_view answer) {
    constexpr std::string_view kMark = "Version:";
    const std::size_t begin = answer.find(kMark);
    if (begin == std::string_view::npos)
        return std::nullopt;
    constexpr std::size_t kNeeded = 4;
    const auto fields = text::split(answer.substr(begin + kMark.size()), ',');
    if (fields.size() < kNeeded)
        return std::nullopt;
    const auto major = numberIn<std::int32_t>(fields[0]);
    const auto minor = numberIn<std::int32_t>(fields[1]);
    const auto revision = numberIn<std::int32_t>(fields[2]);
    if (!major || !minor || !revision)
        return std::nullopt;
    ProgramOffer offer{{*major, *minor, *revision}, withoutLineEnd(fields[3]), {}, {}};
    if (fields.size() > 4)
        offer.changes = withoutLineEnd(fields[4]);
    if (fields.size() > 5)
        offer.sizeKb = numberIn<std::int64_t>(fields[5]);
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

} // namespace brovin::update
