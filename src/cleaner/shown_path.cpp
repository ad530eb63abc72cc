#include "cleaner/shown_path.h"

#include "text/strings.h"
#include "text/utf8.h"

#include <algorithm>

namespace brovin::cleaner {
namespace {

constexpr std::size_t kHead = kMostShownPath / 3;
constexpr std::size_t kTail = kMostShownPath - kHead;

bool isWithinCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string_view head(std::string_view path) {
    std::size_t end = kHead;
    while (end > 0 && isWithinCharacter(path[end]))
        --end;
    return path.substr(0, end);
}

std::string_view tail(std::string_view path) {
    std::size_t begin = path.size() - kTail;
    while (begin < path.size() && isWithinCharacter(path[begin]))
        ++begin;
    return path.substr(begin);
}

} // namespace

std::string listedPath(std::string_view folder, std::string_view name) {
    if (folder.size() + name.size() <= kMostShownPath)
        return text::displayText(folder).append(text::displayText(name));
    // Whichever of the two they lie in: a share can have names of a thousand letters in a short folder.
    std::string begin(folder.substr(0, kHead + 1));
    begin.append(name.substr(0, kHead + 1 - begin.size()));
    const std::size_t ofName = std::min(name.size(), kTail);
    std::string end(folder.substr(folder.size() - std::min(folder.size(), kTail - ofName)));
    end.append(name.substr(name.size() - ofName));
    return text::displayText(head(begin)) + " … " + text::displayText(tail(end));
}

std::string shownPath(std::string_view folder, std::string_view name) {
    std::string path = listedPath(folder, name);
    text::replaceEach(path, "\\n", "\uFFFDn");
    return path;
}

} // namespace brovin::cleaner
