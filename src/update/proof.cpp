#include "update/proof.h"

namespace brovin::update {
namespace {

/// Whether the size that was told in KB, however it was rounded, is that of so many bytes.
bool sameSize(std::int64_t kb, std::uint64_t bytes) {
    constexpr std::uint64_t kKb = 1024;
    const auto told = static_cast<std::uint64_t>(kb);
    return told == bytes / kKb || told == bytes / kKb + 1;
}

} // namespace

std::optional<std::string> whyNotOffered(std::string_view statement, const Offered& offered,
                                         const platform::MakersKey& key) {
    const auto read = statementOf(statement);
    if (!read)
        return "Its signature cannot be read.";
    if (!key.fits(read->signedText, read->signature))
        return "Its signature is not the maker's.";
    if (read->version != offered.version)
        return "Its signature is for another version than the one on offer.";
    if (offered.sizeKb && !sameSize(*offered.sizeKb, read->size))
        return "Its signature is for another size than the one on offer.";
    return std::nullopt;
}

std::optional<std::string> whyNotReceived(const Statement& statement, const Received& received) {
    if (received.size != statement.size)
        return "It has another size than the one that was signed.";
    if (received.sha512 != statement.sha512)
        return "It is not the file that was signed.";
    return std::nullopt;
}

} // namespace brovin::update
