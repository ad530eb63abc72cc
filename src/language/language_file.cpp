#include "language/language_file.h"

#include "text/strings.h"
#include "text/utf8.h"

namespace brovin::language {

std::vector<std::string> linesOf(std::string_view bytes) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kByteOrderMark))
        bytes.remove_prefix(kByteOrderMark.size());
    const bool utf8 = text::isUtf8(bytes);
    std::vector<std::string> lines;
    for (std::string_view line : text::split(bytes, '\n')) {
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(utf8 ? std::string(line) : text::fromWindows1252(line));
    }
    return lines;
}

std::optional<KeyedLine> keyedLine(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return std::nullopt;
    return KeyedLine{text::trim(line.substr(0, equals)), line.substr(equals + 1)};
}

} // namespace brovin::language
