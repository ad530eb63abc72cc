#pragma once

#include "platform/clock.h"
#include "ui/control.h"

#include <chrono>
#include <string>
#include <vector>

namespace brovin::ui {

/// A text that can be clicked.
class Label : public Control {
public:
    using Control::Control;
    Event<> click;

    [[nodiscard]] bool bold() const { return bold_; }
    void setBold(bool bold) { change(bold_, bold); }
    /// Whether it is drawn as the chosen one among its like.
    [[nodiscard]] bool highlighted() const { return highlighted_; }
    void setHighlighted(bool highlighted) { change(highlighted_, highlighted); }

private:
    bool bold_ = false;
    bool highlighted_ = false;
};

/// A picture, named by its key in the program's pictures.
class Image : public Control {
public:
    using Control::Control;
    Event<> click;
    Event<> mouseMove;

    [[nodiscard]] const std::string& picture() const { return picture_; }
    void setPicture(std::string key) { change(picture_, std::move(key)); }

private:
    std::string picture_;
};

/// A push button, which may carry a picture.
class Button : public Image {
public:
    using Image::Image;
    /// Whether the Enter key presses it.
    [[nodiscard]] bool isDefault() const { return isDefault_; }
    void setDefault(bool isDefault) { change(isDefault_, isDefault); }

private:
    bool isDefault_ = false;
};

/// A page or a frame: what the mouse can be over.
class Panel : public Control {
public:
    using Control::Control;
    Event<> mouseMove;
    /// A button was released over it, at this place in it.
    Event<double, double> mouseUp;
};

class CheckBox : public Control {
public:
    using Control::Control;
    Event<> click;

    static constexpr int kOff = 0;
    static constexpr int kOn = 1;

    [[nodiscard]] int value() const { return value_; }
    [[nodiscard]] bool checked() const { return value_ == kOn; }
    /// Sets the value and fires the click, as the user would, even when the value stays. False: not kOff or
    /// kOn; nothing happens.
    bool setValue(int value);

private:
    int value_ = kOff;
};

/// One of a group of choices; choosing it is the shell's or the caller's cause to clear the others.
class OptionButton : public Control {
public:
    using Control::Control;
    Event<> click;

    [[nodiscard]] bool value() const { return value_; }
    /// Switching it on fires the click, even when it was on; switching it off fires nothing.
    void setValue(bool value);

private:
    bool value_ = false;
};

/// A place on the screen, in pixels.
struct Place {
    int x = 0;
    int y = 0;
};

class TextBox : public Control {
public:
    using Control::Control;
    Event<> change;
    Event<> gotFocus;
    /// Where its upper left corner is; empty until a shell shows it.
    std::function<Place()> place;

    [[nodiscard]] const std::string& text() const { return text_; }
    /// Fires the change when the text becomes another one.
    void setText(std::string text);

private:
    std::string text_;
};

/// Entries of which one may be selected.
class ListControl : public Control {
public:
    using Control::Control;
    Event<> click;
    Event<> gotFocus;

    struct Item {
        std::string text;
        int data = 0; ///< the number that the program keeps beside the text
        bool operator==(const Item&) const = default;
    };
    static constexpr int kNone = -1;

    [[nodiscard]] const std::vector<Item>& items() const { return items_; }
    [[nodiscard]] int count() const { return static_cast<int>(items_.size()); }
    /// The text of the selected item; empty when there is none.
    [[nodiscard]] std::string selectedText() const;
    /// Index of the selected item, kNone when there is none.
    [[nodiscard]] int selected() const { return selected_; }
    /// Selects and fires the click, even when the selection stays. False: no such item; nothing happens.
    bool select(int index);
    /// Selects and fires nothing: the choice is the same, only its place in the list is another. False: no
    /// such item; nothing happens.
    bool place(int index);

    void add(Item item);
    /// Removes an item that exists; where it was selected, nothing is selected then. Fires nothing.
    void remove(int index);
    /// Replaces all items and clears the selection. Fires nothing.
    void setItems(std::vector<Item> items);
    void clear() { setItems({}); }

    /// Grows with each change of the items, so that a shell need not compare them.
    [[nodiscard]] unsigned long revision() const { return revision_; }

private:
    void itemsChanged();

    std::vector<Item> items_;
    int selected_ = kNone;
    unsigned long revision_ = 0;
};

class ListBox : public ListControl {
public:
    using ListControl::ListControl;
};

class ComboBox : public ListControl {
public:
    using ListControl::ListControl;
};

/// A date-time picker.
class Picker : public Control {
public:
    using Control::Control;
    Event<> change;

    [[nodiscard]] platform::DateTime value() const { return value_; }
    /// Fires the change when the value becomes another one.
    void setValue(platform::DateTime value);
    /// What it shows: h, mm, tt (half of the day) and ddd (weekday) with the signs between them.
    [[nodiscard]] const std::string& customFormat() const { return customFormat_; }
    void setCustomFormat(std::string format) { Control::change(customFormat_, std::move(format)); }

private:
    platform::DateTime value_{};
    std::string customFormat_ = "h:mm tt";
};

/// How loud something is, in percent.
class Volume : public Control {
public:
    using Control::Control;
    Event<> change;

    static constexpr int kLoudest = 100;

    [[nodiscard]] int percent() const { return percent_; }
    /// Fires the change when the value becomes another one. False: not 0 to kLoudest; nothing happens.
    bool setPercent(int percent);

private:
    int percent_ = kLoudest;
};

/// A frame that moves around what it marks.
class MovingFrame : public Control {
public:
    using Control::Control;
    /// Grows by one with each step of the movement and begins again after kSteps.
    [[nodiscard]] int step() const { return step_; }
    static constexpr int kSteps = 8;
    void advance() { change(step_, (step_ + 1) % kSteps); }

private:
    int step_ = 0;
};

/// A moving picture from a file, which is named by its full path.
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

/// The line of text at the window's lower edge: its first panel.
class StatusBar : public Control {
public:
    using Control::Control;
    [[nodiscard]] const std::string& panel() const { return panel_; }
    void setPanel(std::string text) { change(panel_, std::move(text)); }

private:
    std::string panel_;
};

/// Fires its tick again and again while it is enabled; a shell keeps the time.
class Timer : public Control {
public:
    Timer(Form& form, std::string name) : Control(form, std::move(name)) { setEnabled(false); }
    Event<> tick;

    [[nodiscard]] std::chrono::milliseconds interval() const { return interval_; }
    void setInterval(std::chrono::milliseconds interval) { change(interval_, interval); }

private:
    std::chrono::milliseconds interval_{0};
};

} // namespace brovin::ui
