#include "text/strings.h"

namespace brovin::text {

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    if (text.empty())
        return pieces;
    for (std::size_t end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
        pieces.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    pieces.push_back(text);
    return pieces;
}

std::string_view trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with) {
    std::string replaced;
    replaced.reserve(text.size() + with.size());
    std::size_t from = 0;
    for (std::size_t at = what.empty() ? std::string_view::npos : text.find(what);
         at != std::string_view::npos; at = text.find(what, from)) {
        replaced.append(text.substr(from, at - from)).append(with);
        from = at + what.size();
    }
    return replaced.append(text.substr(from));
}

void replaceEach(std::string& text, std::string_view what, std::string_view with) {
    if (text.find(what) != std::string::npos)
        text = replaceAll(text, what, with);
}

std::string replaceFirst(std::string_view text, std::string_view what, std::string_view with) {
    const std::size_t at = text.find(what);
    std::string replaced(text);
    if (at != std::string_view::npos)
        replaced.replace(at, what.size(), with);
    return replaced;
}

std::size_t countOf(std::string_view text, std::string_view what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string_view::npos;
         at = text.find(what, at + what.size()))
        ++count;
    return count;
}

std::string asciiLower(std::string_view text) {
    std::string lowered(text);
    for (char& c : lowered)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return lowered;
}

} // namespace brovin::text
