#pragma once

#include "ui/frm_download.h"

#include <QDialog>
#include <QTimer>

class QLabel;
class QProgressBar;

namespace brovin::desktop {

/// The window that fetches a new version of the program. Amounts change thousands of times in a second; they
/// are shown as often as an eye can follow.
class DownloadWindow final : public QDialog {
    Q_OBJECT
public:
    DownloadWindow(ui::FrmDownload& form, QWidget* owner);

    /// The close box and Escape.
    void reject() override;

private:
    [[nodiscard]] QLayout* makeHead();
    [[nodiscard]] QLayout* makeButtons();
    void showAmounts();
    void followWindow();

    ui::FrmDownload& form_;
    QLabel* text_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QTimer nextLook_;
};

/// Shows download windows in front of the options window.
class DownloadWindows final : public ui::DownloadWindowHost {
public:
    /// The window that owns them while it is visible; null: none.
    void setOwner(QWidget* owner) { owner_ = owner; }
    /// Whether one is open: what else happens waits for it.
    [[nodiscard]] bool open() const { return open_; }

    void showModal(ui::FrmDownload& form) override;

private:
    QWidget* owner_ = nullptr;
    bool open_ = false;
};

} // namespace brovin::desktop
