#pragma once

#include "language/texts.h"
#include "platform/makers_key.h"
#include "update/statement.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brovin::update {

/// The longest statement that is read, in bytes.
inline constexpr std::size_t kLongestStatement = 4096;

/// Where the statement about a file is.
[[nodiscard]] inline std::string statementUrl(const std::string& url) {
    return url + ".sig";
}

/// What the server offered.
struct Offered {
    Kind kind = Kind::Program;
    std::string file; ///< its name, without a folder
    std::string version;
    std::optional<std::int64_t> sizeKb;
};
/// What came.
struct Received {
    std::uint64_t size = 0;
    std::string sha512;
};

/// Why a statement does not vouch for the offer; nullopt: it does.
[[nodiscard]] std::optional<language::Text> whyNotOffered(std::string_view statement, const Offered& offered,
                                                          const platform::MakersKey& key);

/// Why what came is not what the statement vouches for; nullopt: it is.
[[nodiscard]] std::optional<language::Text> whyNotReceived(const Statement& statement,
                                                           const Received& received);

} // namespace brovin::update
