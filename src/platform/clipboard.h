#pragma once

#include <string>

namespace brovin::platform {

/// The desktop's clipboard.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// Replaces the content by a text. False: refused, and the old content stays.
    [[nodiscard]] virtual bool setText(const std::string& text) = 0;
};

} // namespace brovin::platform
