#include "desktop/window/form_window.h"

#include "desktop/widgets/pictures.h"
#include "desktop/widgets/text.h"

namespace brovin::desktop {

FormWindow::FormWindow(ui::Window& window, QWidget* owner) : QDialog(owner), window_(window) {
    setObjectName(qt(window.name()));
    setWindowIcon(programIcon());
    setWindowTitle(qt(window.caption()));
}

void FormWindow::reject() {
    window_.close();
}

} // namespace brovin::desktop
