#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brovin::update {

/// Major, minor and revision.
struct Version {
    std::int32_t major = 0;
    std::int32_t minor = 0;
    std::int32_t revision = 0;

    auto operator<=>(const Version&) const = default;
    /// "2.7.106".
    [[nodiscard]] std::string text() const;
};

/// What the server has to offer in place of this program.
struct ProgramOffer {
    Version version;
    std::string url;
    std::string changes;                ///< divided by "|"; empty: not told
    std::optional<std::int64_t> sizeKb; ///< nullopt: not told
};

/// The offer in an answer: right behind the first "Version:", wherever it stands, four to six fields between
/// commas. nullopt: no offer, or one with too few fields, or whose version is not made of numbers. A list of
/// changes with a comma in it ends there; a size that is no number counts as not told.
[[nodiscard]] std::optional<ProgramOffer> programOffer(std::string_view answer);

/// Each number is compared on its own, so that 2.6.200 counts as newer than 2.7.106.
[[nodiscard]] bool countsAsNewer(const Version& offered, const Version& running);

struct PackOffer {
    std::string url;
    std::string version; ///< digits and points
};

/// The offer in an answer that begins with "http:/"; nullopt: no offer, or one without a proper version.
[[nodiscard]] std::optional<PackOffer> packOffer(std::string_view answer);

} // namespace brovin::update
