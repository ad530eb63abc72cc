#pragma once

#include <QString>

namespace brovin::tools {

/// Draws the characters that ship side by side, each with its own gesture and a word on its lips.
/// `characters`: the folder with their files. False: one is missing, or `file` cannot be written.
[[nodiscard]] bool drawGroup(const QString& characters, const QString& file);

} // namespace brovin::tools
