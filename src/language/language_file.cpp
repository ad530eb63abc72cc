#include "language/language_file.h"

#include "text/strings.h"
#include "text/utf8.h"

#include <utility>

namespace brovin::language {

LineReader::LineReader(std::string_view bytes) : rest_(bytes), more_(!bytes.empty()) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (rest_.starts_with(kByteOrderMark))
        rest_.remove_prefix(kByteOrderMark.size());
    utf8_ = text::isUtf8(rest_);
}

std::optional<std::string> LineReader::next() {
    if (!more_)
        return std::nullopt;
    const std::size_t end = rest_.find('\n');
    more_ = end != std::string_view::npos;
    std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(more_ ? end + 1 : rest_.size());
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return utf8_ ? std::string(line) : text::fromWindows1252(line);
}

std::vector<std::string> linesOf(std::string_view bytes) {
    std::vector<std::string> lines;
    LineReader reader(bytes);
    while (auto line = reader.next())
        lines.push_back(std::move(*line));
    return lines;
}

std::optional<KeyedLine> keyedLine(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return std::nullopt;
    return KeyedLine{text::trim(line.substr(0, equals)), line.substr(equals + 1)};
}

} // namespace brovin::language
