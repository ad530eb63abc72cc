#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

class QMessageBox;

namespace brovin::desktop {

/// Keeps what is typed elsewhere from answering a box that comes up by itself: it comes to the front without
/// the keyboard, the task bar asks for attention, and keys count only after the user has clicked on it or
/// gone to it. Lives as long as the box.
class UnaskedBox final : public QObject {
    Q_OBJECT
public:
    explicit UnaskedBox(QDialog& box);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void admitFocus();
    void activated();

    QDialog& box_;
    QElapsedTimer shown_;
    QTimer quiet_; ///< since the last key that did not count
    bool keysCount_ = false;
};

/// The buttons of a question can be pressed only after half a second, so that a click or a key that was meant
/// for something else does not answer it.
void letButtonsWait(QMessageBox& box);

/// Brings a box to the front wherever it is: behind other windows, or minimised.
void bringBack(QWidget& box);

} // namespace brovin::desktop
