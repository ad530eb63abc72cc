#pragma once

#include <string>
#include <string_view>

namespace brovin::platform {

/// The rules of letters in all alphabets, the same whatever the user's formats are. Texts are UTF-8; bytes
/// that are not stay as they are.
class Letters {
public:
    virtual ~Letters() = default;

    [[nodiscard]] virtual std::string lowerCase(std::string_view text) const = 0;
    /// The first letter of each word in upper case, the rest in lower case.
    [[nodiscard]] virtual std::string properCase(std::string_view text) const = 0;
};

} // namespace brovin::platform
