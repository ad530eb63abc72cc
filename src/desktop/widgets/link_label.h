#pragma once

#include "ui/controls.h"

#include <QLabel>

namespace brovin::desktop {

/// A label that looks and works like a link, from the keyboard too.
class LinkLabel final : public QLabel {
    Q_OBJECT
public:
    explicit LinkLabel(ui::Label& control, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showText();

    ui::Label& control_;
};

} // namespace brovin::desktop
