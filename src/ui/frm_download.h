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

/// A moving picture from a file in the program's folder.
class Animation : public Control {
public:
    using Control::Control;
    [[nodiscard]] const std::string& file() const { return file_; }
    void open(std::string file) { change(file_, std::move(file)); }
    [[nodiscard]] bool playing() const { return playing_; }
    void setPlaying(bool playing) { change(playing_, playing); }

private:
    std::string file_;
    bool playing_ = false;
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

} // namespace brovin::ui
