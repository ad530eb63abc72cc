#pragma once

#include <QEvent>
#include <QLayout>
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

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == widget() && event->type() == QEvent::Resize)
            QMetaObject::invokeMethod(
                this, [this] { layOutAgain(); }, Qt::QueuedConnection);
        return QScrollArea::eventFilter(watched, event);
    }

private:
    /// A bar that comes while texts take more lines makes the page narrower in the midst of its own layout,
    /// which the toolkit then leaves as it was.
    void layOutAgain() {
        if (QLayout* layout = widget()->layout(); layout != nullptr && layout->geometry() != widget()->rect())
            layout->setGeometry(widget()->rect());
    }
};

} // namespace brovin::desktop
