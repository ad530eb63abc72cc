#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brovin::update_server {

/// What a folder has to offer. It is looked at anew for each question, so that a new version is on offer as
/// soon as it lies there.
class Offers {
public:
    explicit Offers(std::string folder) : folder_(std::move(folder)) {}

    /// The answer to whoever asks for the program: "Version:" and the offer, or nothing.
    [[nodiscard]] std::string program(const std::string& baseUrl) const;
    /// The answer to whoever has `version` of a language file: the address of a newer one, or nothing.
    [[nodiscard]] std::string pack(const std::string& file, std::string_view version,
                                   const std::string& baseUrl) const;
    /// The full path of a file that may be fetched; nullopt: there is none of that name.
    [[nodiscard]] std::optional<std::string> document(const std::string& name) const;

private:
    std::string folder_;
};

} // namespace brovin::update_server
