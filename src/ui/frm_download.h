#pragma once

#include "ui/controls.h"
#include "ui/window.h"

namespace brovin::ui {

/// How much of a download has come.
class ProgressBar : public Control {
public:
    using Control::Control;
    [[nodiscard]] double value() const { return value_; }
    [[nodiscard]] double maximum() const { return maximum_; }
    /// Never beyond the maximum.
    void setValue(double value) { change(value_, value < maximum_ ? value : maximum_); }
    void setMaximum(double maximum) { change(maximum_, maximum); }

private:
    double value_ = 0;
    double maximum_ = 100;
};

/// The window that fetches a new version of the program.
struct FrmDownload : Form {
    Window window{*this, "frmDownload"};
    Label lblText{*this, "lblText"};
    TextBox txtUpdates{*this, "txtUpdates"};
    Button cmdStart{*this, "cmdStart"};
    Button cmdCancel{*this, "cmdCancel"};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};
    Animation Animation1{*this, "Animation1"};
};

/// Where download windows are shown.
class DownloadWindowHost {
public:
    virtual ~DownloadWindowHost() = default;

    /// Shows the form's window in front of all others, which wait, until the form says that it is invisible.
    virtual void showModal(FrmDownload& form) = 0;
};

} // namespace brovin::ui
