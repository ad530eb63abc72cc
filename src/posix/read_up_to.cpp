#include "posix/read_up_to.h"

#include "posix/system_call.h"

#include <algorithm>

namespace brovin::posix {

std::optional<std::string> readUpTo(const Descriptor& file, std::size_t limit) {
    constexpr std::size_t kPiece = std::size_t{64} * 1024;
    std::string content;
    for (;;) {
        const std::size_t size = content.size();
        const std::size_t room = limit - size < kPiece ? limit - size + 1 : kPiece;
        content.resize(size + room);
        const ssize_t bytes =
            uninterrupted([&] { return ::read(file.number(), content.data() + size, room); });
        content.resize(size + static_cast<std::size_t>(std::max<ssize_t>(bytes, 0)));
        if (bytes < 0 || content.size() > limit)
            return std::nullopt;
        if (bytes == 0)
            return content;
    }
}

} // namespace brovin::posix
