#include "posix/line_file.h"

#include "posix/system_call.h"

#include <unistd.h>

namespace brovin::posix {

platform::Status LineFile::writeLine(std::string_view line) {
    buffer_.assign(line).append("\r\n");
    std::string_view left = buffer_;
    while (!left.empty()) {
        const ssize_t written =
            uninterrupted([this, left] { return ::write(file_.number(), left.data(), left.size()); });
        if (written < 0)
            return lastFailure();
        left.remove_prefix(static_cast<std::size_t>(written));
    }
    return platform::Done{};
}

} // namespace brovin::posix
