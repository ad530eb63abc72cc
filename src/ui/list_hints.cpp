#include "ui/list_hints.h"

namespace brovin::ui {

void tieListHints(FrmOptions& form) {
    const auto show = [&form] {
        const bool noNames = form.lstFiles.count() == 0;
        form.picAddFile.setVisible(noNames);
        // At most icon files go without any name; "._" files do not, whatever their box says.
        form.lblNoNames.setVisible(noNames && form.lstFolders.count() > 0);
    };
    show();
    form.lstFiles.observe(show);
    form.lstFolders.observe(show);
}

} // namespace brovin::ui
