#pragma once

#include <string>
#include <string_view>

namespace brovin::platform {

/// The maker's public key, which a build can carry, and what is reckoned with it.
class MakersKey {
public:
    virtual ~MakersKey() = default;

    /// Whether this build carries one. A broken one counts as one that nothing fits.
    [[nodiscard]] virtual bool present() const = 0;
    /// Whether `signature`, an Ed25519 signature in base64, is the maker's over `text`.
    [[nodiscard]] virtual bool fits(std::string_view text, std::string_view signature) const = 0;
    /// The SHA-512 of a text, in hex of lower case.
    [[nodiscard]] virtual std::string sha512(std::string_view text) const = 0;
};

} // namespace brovin::platform
