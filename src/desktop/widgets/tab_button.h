#pragma once

#include "ui/frm_options.h"

#include <QAbstractButton>

namespace brovin::desktop {

/// One of the tabs at the window's left: its picture with its caption below.
class TabButton final : public QAbstractButton {
    Q_OBJECT
public:
    TabButton(ui::FrmOptions& form, std::size_t tab, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    /// The same with a smaller picture.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    [[nodiscard]] QFont captionFont() const;
    void drawFrame(QPainter& painter) const;

    ui::FrmOptions& form_;
    ui::Image& image_;
    ui::Label& label_;
};

} // namespace brovin::desktop
