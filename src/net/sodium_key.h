#pragma once

#include "platform/makers_key.h"

#include <array>
#include <string>

namespace brovin::net {

/// An Ed25519 public key, reckoned with by libsodium.
class SodiumKey final : public platform::MakersKey {
public:
    /// `text` is the key in hex or base64; empty: none. Anything else is a broken key.
    explicit SodiumKey(const std::string& text);

    [[nodiscard]] bool present() const override { return present_; }
    [[nodiscard]] bool fits(std::string_view text, std::string_view signature) const override;
    [[nodiscard]] std::string sha512(std::string_view text) const override;

private:
    static constexpr std::size_t kBytes = 32;
    bool present_;
    bool sound_ = false;
    std::array<unsigned char, kBytes> key_{};
};

} // namespace brovin::net
