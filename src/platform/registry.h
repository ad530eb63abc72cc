#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brovin::platform {

/// Named text values under key paths, where the desktop looks up what it starts at log-on.
class Registry {
public:
    virtual ~Registry() = default;

    /// nullopt: the key or the value is missing.
    [[nodiscard]] virtual std::optional<std::string> read(std::string_view keyPath,
                                                          std::string_view valueName) = 0;
    /// False: refused, nothing has changed.
    virtual bool write(std::string_view keyPath, std::string_view valueName, const std::string& value) = 0;
    /// False: refused or missing, nothing has changed.
    virtual bool remove(std::string_view keyPath, std::string_view valueName) = 0;
};

} // namespace brovin::platform
