#pragma once

#include <optional>
#include <string>

namespace brovin::update_server {

/// Makes a pair of keys. The secret one goes into a file that only its owner can read and that must not be
/// there yet. The public one in base64; nullopt: the file cannot be written.
[[nodiscard]] std::optional<std::string> makeKeys(const std::string& secretFile);

/// The statement about a document: version, size, SHA-512 and signature, a line each. nullopt: the key or the
/// document cannot be read.
[[nodiscard]] std::optional<std::string>
statementAbout(const std::string& document, const std::string& version, const std::string& secretFile);

} // namespace brovin::update_server
