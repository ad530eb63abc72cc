#pragma once

#include "platform/internet_transfer.h"

#include <optional>
#include <string>
#include <string_view>

namespace brovin::update {

/// What of a web address decides whether it is trusted. Addresses that programs read differently, such as one
/// with a user's name or a backslash before the host, are none.
struct Address {
    enum class Scheme { Http, Https };
    Scheme scheme = Scheme::Http;
    std::string host; ///< in lower case; an IPv6 address without its brackets

    /// Whether it is this very machine.
    [[nodiscard]] bool loopback() const;
};

/// nullopt: not an http or https address that is written without tricks.
[[nodiscard]] std::optional<Address> addressOf(std::string_view url);

/// Whether a document may be fetched from there.
[[nodiscard]] bool mayFetch(std::string_view url, platform::PlainHttp plainHttp);

/// Whether a redirect may be followed: what began by https stays there.
[[nodiscard]] bool mayFollow(std::string_view from, std::string_view to, platform::PlainHttp plainHttp);

/// The address with http replaced by https, except of this machine.
[[nodiscard]] std::string byHttps(const std::string& url);

/// The last part of an address's path, as it stands there.
[[nodiscard]] std::string fileNameOf(std::string_view url);

/// A text as a value in an address's query: all but letters, digits and "-._~" as %XX.
[[nodiscard]] std::string queryValue(std::string_view text);

} // namespace brovin::update
