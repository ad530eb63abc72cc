#pragma once

#include "ui/frm_options.h"

namespace brovin::ui {

/// From here on the form shows beside its lists what is missing before a scan can delete anything.
void tieListHints(FrmOptions& form);

} // namespace brovin::ui
