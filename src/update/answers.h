#pragma once

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

    bool operator==(const Version&) const = default;
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

/// The offer in an answer: behind the first "Version:" five or six fields between commas. nullopt: no offer,
/// or one with too few fields, or whose version is not made of numbers. A list of changes with a comma in it
/// ends there; a size that is no number counts as not told.
[[nodiscard]] std::optional<ProgramOffer> programOffer(std::string_view answer);

/// Each number is compared on its own, so that 2.6.200 counts as newer than 2.7.106.
[[nodiscard]] bool countsAsNewer(const Version& offered, const Version& running);

struct PackOffer {
    std::string url;
    std::string version; ///< digits and points
};

/// The offer in an answer that begins with "http:/"; nullopt: no offer, or one without a proper version.
[[nodiscard]] std::optional<PackOffer> packOffer(std::string_view answer);

/// The statement about a file: who vouches for what. Lines: version, size in bytes, SHA-512 in hex, and the
/// signature in base64 over the three lines before it with their line feeds.
struct Statement {
    std::string version;
    std::uint64_t size = 0;
    std::string sha512;    ///< in lower case
    std::string signature; ///< in base64
    std::string signedText;
};

/// nullopt: not four lines of that form.
[[nodiscard]] std::optional<Statement> statementOf(std::string_view text);

/// The three lines that a statement signs.
[[nodiscard]] std::string textToSign(std::string_view version, std::uint64_t size, std::string_view sha512);

} // namespace brovin::update
