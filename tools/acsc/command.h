#pragma once

#include <QStringList>

namespace brovin::acsc {

/// Runs the command with its arguments. Exit status: 0 done, 1 the source or the file is not right, 2 bad
/// usage.
[[nodiscard]] int run(const QStringList& arguments);

} // namespace brovin::acsc
