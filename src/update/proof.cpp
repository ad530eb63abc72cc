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

std::optional<language::Text> whyNotOffered(std::string_view statement, const Offered& offered,
                                            const platform::MakersKey& key) {
    const auto read = statementOf(statement);
    if (!read)
        return language::Text("signatureUnreadable");
    if (!key.fits(read->signedText, read->signature))
        return language::Text("signatureForged");
    if (read->claim.kind != offered.kind || read->claim.file != offered.file)
        return language::Text("signatureOtherFile");
    if (read->claim.version != offered.version)
        return language::Text("signatureOtherVersion");
    if (offered.sizeKb && !sameSize(*offered.sizeKb, read->claim.size))
        return language::Text("signatureOtherSize");
    return std::nullopt;
}

std::optional<language::Text> whyNotReceived(const Statement& statement, const Received& received) {
    if (received.size != statement.claim.size)
        return language::Text("notTheSignedSize");
    if (received.sha512 != statement.claim.sha512)
        return language::Text("notTheSignedFile");
    return std::nullopt;
}

} // namespace brovin::update
