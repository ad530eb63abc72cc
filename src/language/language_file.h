#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::language {

/// The largest language file that is read, in bytes; the shipped ones have about 60 KB.
inline constexpr std::size_t kLargestFile = std::size_t{4} << 20U;

/// The lines of a language file as UTF-8. The bytes are UTF-8, with or without a byte-order mark, or else
/// Windows-1252; lines end with LF or CR LF.
[[nodiscard]] std::vector<std::string> linesOf(std::string_view bytes);

/// The same one by one, for those who want the first few.
class LineReader {
public:
    /// `bytes` must outlive it.
    explicit LineReader(std::string_view bytes);

    /// nullopt: there are no more.
    [[nodiscard]] std::optional<std::string> next();

private:
    std::string_view rest_;
    bool more_ = true;
    bool utf8_ = false;
};

/// A line that sets something: what stands before its first "=", without blanks around it, and all that
/// follows.
struct KeyedLine {
    std::string_view key;
    std::string_view value;
};

/// nullopt: a line without "=", which sets nothing.
[[nodiscard]] std::optional<KeyedLine> keyedLine(std::string_view line);

} // namespace brovin::language
