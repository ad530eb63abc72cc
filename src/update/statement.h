#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brovin::update {

/// What a file is that the maker vouches for.
enum class Kind { Program, Pack };

/// What the maker says of one file.
struct Claim {
    Kind kind = Kind::Program;
    std::string file; ///< its name, without a folder
    std::string version;
    std::string date{}; ///< of the signature: "2026-11-21"
    std::uint64_t size = 0;
    std::string sha512{}; ///< in hex of lower case

    bool operator==(const Claim&) const = default;
};

/// A claim and who makes it.
struct Statement {
    Claim claim;
    std::string signature; ///< in base64
    std::string signedText;
};

/// The lines that a statement signs: product, kind, file, version, date, size and SHA-512, each as
/// "name=value" with a line feed.
[[nodiscard]] std::string textToSign(const Claim& claim);

/// A statement is the signed lines and one with the signature. nullopt: it has another form, or is about
/// another product.
[[nodiscard]] std::optional<Statement> statementOf(std::string_view text);

} // namespace brovin::update
