#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brovin::ui {

class Control;

/// What happens on the screen; fired by the user through a shell or by a write from code. Without a handler
/// it passes unheard; several hear of it in the order in which they were tied.
template <class... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;

    /// Ties the handler to the event, in place of earlier ones; an empty one unties them.
    void operator=(Handler handler) {
        handlers_.clear();
        *this += std::move(handler);
    }
    /// Ties the handler to the event, behind earlier ones.
    void operator+=(Handler handler) {
        if (handler)
            handlers_.push_back(std::move(handler));
    }
    void operator()(Args... args) const {
        for (const Handler& handler : handlers_)
            handler(args...);
    }

private:
    std::vector<Handler> handlers_;
};

/// A window without a toolkit: the controls on it, which announce themselves here as they are made.
class Form {
public:
    Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

    /// All controls in the order of their declaration.
    [[nodiscard]] const std::vector<Control*>& controls() const { return controls_; }
    /// The control of this name, matched exactly; null when there is none.
    [[nodiscard]] Control* find(std::string_view name) const;

private:
    friend class Control;
    std::vector<Control*> controls_;
};

/// What every control has. A control is what the program reads and writes and the events that it fires; a
/// shell observes it and shows it.
class Control {
public:
    /// The caption stands until a language file sets one.
    Control(Form& form, std::string name, std::string caption = {})
        : name_(std::move(name)), caption_(std::move(caption)) {
        form.controls_.push_back(this);
    }
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    /// The name by which language files and tests know it.
    [[nodiscard]] const std::string& name() const { return name_; }

    /// The text on it, "&" before its mnemonic; of a list or a picture, the name that a screen reader tells.
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption) { change(caption_, std::move(caption)); }
    [[nodiscard]] const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string toolTip) { change(toolTip_, std::move(toolTip)); }
    [[nodiscard]] bool enabled() const { return enabled_; }
    void setEnabled(bool enabled) { change(enabled_, enabled); }
    [[nodiscard]] bool visible() const { return visible_; }
    void setVisible(bool visible) { change(visible_, visible); }
    /// Whether the mouse pointer over it is a hand.
    [[nodiscard]] bool hand() const { return hand_; }
    void setHand(bool hand) { change(hand_, hand); }

    /// Calls `observer` after each change of a property, for as long as the control lives.
    void observe(std::function<void()> observer) { observers_.push_back(std::move(observer)); }

protected:
    /// Stores a property's value and tells the observers if it is another one. Returns whether it was.
    template <class T>
    bool change(T& held, T value) {
        if (held == value)
            return false;
        held = std::move(value);
        notify();
        return true;
    }
    void notify() const {
        for (const auto& observer : observers_)
            observer();
    }

private:
    std::string name_;
    std::string caption_;
    std::string toolTip_;
    bool enabled_ = true;
    bool visible_ = true;
    bool hand_ = false;
    std::vector<std::function<void()>> observers_;
};

} // namespace brovin::ui
