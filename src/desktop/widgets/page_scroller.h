#pragma once

#include <QScrollArea>

namespace brovin::desktop {

/// Shows a page whole where the window has the room, and lets it scroll where large letters or a small screen
/// leave too little.
class PageScroller final : public QScrollArea {
public:
    PageScroller(QWidget* page, QWidget* parent) : QScrollArea(parent) {
        setWidget(page);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus); // what is on the page takes the keys and scrolls itself into sight
    }

    [[nodiscard]] QSize sizeHint() const override { return widget()->sizeHint(); }
};

} // namespace brovin::desktop
