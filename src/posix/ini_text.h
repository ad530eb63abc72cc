#pragma once

#include <string>
#include <string_view>

namespace brovin::posix {

// How texts stand in the settings file. The rules are those of the toolkit's INI files, so that a file which
// an earlier version has written, or an administrator's tool for such files, is understood.

/// A value as it stands behind the "=": quotes where it has a ";", "," or "=" or begins or ends with a blank,
/// and a backslash before what would end a line or a value. Bytes that are not UTF-8 stand as they are.
[[nodiscard]] std::string iniValue(std::string_view text);

/// The text that a value stands for. A comma outside of quotes, which only a hand can have written, is a
/// comma, and the blanks behind it are one.
[[nodiscard]] std::string textOfIniValue(std::string_view value);

/// A key as it stands before the "=": whatever is no letter or digit of ASCII, "_", "-" or "." is "%" and two
/// digits of hex, or "%U" and four.
[[nodiscard]] std::string iniKey(std::string_view text);

/// The lines of such a file that mean something, each with a line feed: remarks, sections, and keys with
/// values. What else there is, such as the rest of a line that was cut off or keys behind half a section, is
/// lost on whoever reads the file; `lost` says whether there was any.
struct SoundLines {
    std::string text;
    bool lost = false;
};
[[nodiscard]] SoundLines soundLines(std::string_view file);

} // namespace brovin::posix
