#include "cleaner/log_search.h"

#include <algorithm>

namespace brovin::cleaner {
namespace {

bool isPlain(std::string_view text) {
    constexpr unsigned char kFirstBeyond = 0x80;
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < kFirstBeyond; });
}

char plainLower(char c) {
    constexpr char kCase = 'a' - 'A';
    return static_cast<char>(c + (c >= 'A' && c <= 'Z' ? kCase : 0));
}

} // namespace

LogSearch::LogSearch(std::string_view wanted, const platform::Letters& letters)
    : letters_(letters), wanted_(letters.lowerCase(wanted)), plain_(isPlain(wanted_)) {}

void LogSearch::take(std::string_view piece) {
    const std::size_t end = piece.rfind('\n');
    if (end == std::string_view::npos) {
        rest_ += piece;
        return;
    }
    if (!rest_.empty()) {
        const std::size_t first = piece.find('\n') + 1;
        rest_ += piece.substr(0, first);
        look(std::string_view(rest_));
        begin_ += rest_.size();
        piece.remove_prefix(first);
    }
    const std::size_t whole = piece.rfind('\n') + 1; // nothing: the one that ended was the only one
    look(piece.substr(0, whole));
    begin_ += whole;
    rest_.assign(piece.substr(whole));
}

void LogSearch::finish() {
    if (rest_.empty())
        return;
    rest_ += '\n';
    look(std::string_view(rest_));
    begin_ += rest_.size();
    rest_.clear();
}

/// Whole lines. The text is looked for in all of them at once, since most hold none; only where its letters
/// are more than ASCII, line by line.
void LogSearch::look(std::string_view text) {
    if (!plain_ || wanted_.empty()) {
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = text.find('\n', at);
            look(text.substr(at, end - at), at);
            at = end + 1;
        }
        return;
    }
    lowered_.resize(text.size());
    std::transform(text.begin(), text.end(), lowered_.begin(), plainLower);
    for (std::size_t at = lowered_.find(wanted_); at != std::string::npos; at = lowered_.find(wanted_, at)) {
        const std::size_t before = at == 0 ? std::string::npos : lowered_.rfind('\n', at - 1);
        keep(begin_ + (before == std::string::npos ? 0 : before + 1));
        at = std::min(lowered_.find('\n', at), lowered_.size() - 1);
    }
}

void LogSearch::look(std::string_view line, std::size_t at) {
    if (wanted_.empty() || letters_.lowerCase(line).find(wanted_) != std::string::npos)
        keep(begin_ + at);
}

void LogSearch::keep(std::uint64_t place) {
    ++found_;
    lines_.push_back(place);
    if (lines_.size() > kMostKept)
        lines_.pop_front();
}

} // namespace brovin::cleaner
