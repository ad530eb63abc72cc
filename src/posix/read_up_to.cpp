#include "posix/read_up_to.h"

#include "posix/system_call.h"

#include <algorithm>
#include <array>

namespace brovin::posix {

std::optional<std::string> readUpTo(const Descriptor& file, std::size_t limit) {
    std::array<char, std::size_t{32} * 1024> piece; // NOLINT(*-member-init): filled by what is read
    std::string content;
    for (;;) {
        const std::size_t room = std::min(limit - content.size(), piece.size() - 1) + 1;
        const ssize_t bytes = uninterrupted([&] { return ::read(file.number(), piece.data(), room); });
        if (bytes < 0)
            return std::nullopt;
        if (bytes == 0)
            return content;
        content.append(piece.data(), static_cast<std::size_t>(bytes));
        if (content.size() > limit)
            return std::nullopt;
    }
}

} // namespace brovin::posix
