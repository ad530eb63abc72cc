#include "signing.h"

#include <sodium.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <vector>

namespace brovin::update_server {
namespace {

using Seed = std::array<unsigned char, crypto_sign_SEEDBYTES>;

struct Pair {
    std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> open{};
    std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret{};
};

Pair pairOf(const Seed& seed) {
    Pair pair;
    crypto_sign_seed_keypair(pair.open.data(), pair.secret.data(), seed.data());
    return pair;
}

std::string base64(const unsigned char* bytes, std::size_t size) {
    std::string text(sodium_base64_encoded_len(size, sodium_base64_VARIANT_ORIGINAL), '\0');
    sodium_bin2base64(text.data(), text.size(), bytes, size, sodium_base64_VARIANT_ORIGINAL);
    text.pop_back(); // its zero
    return text;
}

std::optional<Seed> readSeed(const std::string& secretFile) {
    std::ifstream file(secretFile);
    std::string text;
    std::getline(file, text);
    Seed seed{};
    std::size_t length = 0;
    const bool read = sodium_base642bin(seed.data(), seed.size(), text.data(), text.size(), nullptr, &length,
                                        nullptr, sodium_base64_VARIANT_ORIGINAL) == 0;
    return read && length == seed.size() ? std::optional(seed) : std::nullopt;
}

} // namespace

std::optional<std::string> makeKeys(const std::string& secretFile) {
    if (sodium_init() < 0)
        return std::nullopt;
    Seed seed{};
    randombytes_buf(seed.data(), seed.size());
    const std::string text = base64(seed.data(), seed.size()) + "\n";
    const int file = ::open(secretFile.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0)
        return std::nullopt;
    const bool written = ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    if (::close(file) != 0 || !written)
        return std::nullopt;
    const Pair pair = pairOf(seed);
    return base64(pair.open.data(), pair.open.size());
}

std::optional<std::string> statementAbout(const std::string& document, update::Claim claim,
                                          const std::string& secretFile) {
    std::ifstream file(document, std::ios::binary);
    const auto seed = sodium_init() < 0 ? std::nullopt : readSeed(secretFile);
    if (!file || !seed)
        return std::nullopt;
    crypto_hash_sha512_state state;
    crypto_hash_sha512_init(&state);
    std::vector<char> piece(std::size_t{256} * 1024);
    do {
        file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        const auto read = static_cast<std::size_t>(file.gcount());
        crypto_hash_sha512_update(&state, reinterpret_cast<const unsigned char*>(piece.data()), read);
        claim.size += read;
    } while (file);
    if (!file.eof())
        return std::nullopt;
    unsigned char hash[crypto_hash_sha512_BYTES];
    crypto_hash_sha512_final(&state, hash);
    std::array<char, 2 * sizeof hash + 1> hex{};
    sodium_bin2hex(hex.data(), hex.size(), hash, sizeof hash);
    claim.sha512 = hex.data();
    const std::string text = update::textToSign(claim);
    unsigned char signature[crypto_sign_BYTES];
    crypto_sign_detached(signature, nullptr, reinterpret_cast<const unsigned char*>(text.data()), text.size(),
                         pairOf(*seed).secret.data());
    return text + base64(signature, sizeof signature) + "\n";
}

} // namespace brovin::update_server
