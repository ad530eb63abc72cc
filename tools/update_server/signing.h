#pragma once

#include "update/statement.h"

#include <optional>
#include <string>

namespace brovin::update_server {

/// Makes a pair of keys. The secret one goes into a file that only its owner can read and that must not be
/// there yet. The public one in base64; nullopt: the file cannot be written.
[[nodiscard]] std::optional<std::string> makeKeys(const std::string& secretFile);

/// The signed statement about a document. Its size and SHA-512 are found here; the rest of the claim is the
/// maker's to say. nullopt: the key or the document cannot be read.
[[nodiscard]] std::optional<std::string> statementAbout(const std::string& document, update::Claim claim,
                                                        const std::string& secretFile);

} // namespace brovin::update_server
