#pragma once

#include "acsc/problems.h"

#include <QString>

namespace brovin::acsc {

/// Writes the sources of a small complete character into a folder that is not there yet, or empty: named like
/// the folder, with an identifier of its own. It compiles as it is.
void writeExample(const QString& folder, Problems& problems);

} // namespace brovin::acsc
