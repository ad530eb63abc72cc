#include "net/sodium_key.h"

#include <sodium.h>

namespace brovin::net {
namespace {

const unsigned char* bytesOf(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

bool decode(std::string_view base64, unsigned char* bytes, std::size_t expected) {
    std::size_t length = 0;
    return sodium_base642bin(bytes, expected, base64.data(), base64.size(), nullptr, &length, nullptr,
                             sodium_base64_VARIANT_ORIGINAL) == 0 &&
           length == expected;
}

bool decodeHex(std::string_view hex, unsigned char* bytes, std::size_t expected) {
    std::size_t length = 0;
    const char* end = nullptr;
    return hex.size() == 2 * expected &&
           sodium_hex2bin(bytes, expected, hex.data(), hex.size(), nullptr, &length, &end) == 0 &&
           length == expected && end == hex.data() + hex.size();
}

} // namespace

SodiumKey::SodiumKey(const std::string& text) : present_(!text.empty()) {
    static_assert(kBytes == crypto_sign_PUBLICKEYBYTES);
    sound_ = sodium_init() >= 0 &&
             (decodeHex(text, key_.data(), key_.size()) || decode(text, key_.data(), key_.size()));
}

bool SodiumKey::fits(std::string_view text, std::string_view signature) const {
    unsigned char bytes[crypto_sign_BYTES];
    return sound_ && decode(signature, bytes, sizeof bytes) &&
           crypto_sign_verify_detached(bytes, bytesOf(text), text.size(), key_.data()) == 0;
}

std::string SodiumKey::sha512(std::string_view text) const {
    unsigned char hash[crypto_hash_sha512_BYTES];
    crypto_hash_sha512(hash, bytesOf(text), text.size());
    std::array<char, 2 * crypto_hash_sha512_BYTES + 1> hex{};
    return sodium_bin2hex(hex.data(), hex.size(), hash, sizeof hash);
}

} // namespace brovin::net
