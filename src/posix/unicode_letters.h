#pragma once

#include "platform/letters.h"
#include "posix/unicode_case.h"

namespace brovin::posix {

/// Letters by the tables of Unicode.
class UnicodeLetters final : public platform::Letters {
public:
    [[nodiscard]] std::string lowerCase(std::string_view text) const override {
        return posix::lowerCase(text);
    }
    [[nodiscard]] std::string properCase(std::string_view text) const override {
        return posix::properCase(text);
    }
};

} // namespace brovin::posix
