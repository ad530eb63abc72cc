#include "ui/controls.h"

#include <algorithm>
#include <cassert>

namespace brovin::ui {

Control* Form::find(std::string_view name) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [name](const Control* control) { return control->name() == name; });
    return found == controls_.end() ? nullptr : *found;
}

bool CheckBox::setValue(int value) {
    if (value != kOff && value != kOn)
        return false;
    change(value_, value);
    click();
    return true;
}

void OptionButton::setValue(bool value) {
    change(value_, value);
    if (value)
        click();
}

void TextBox::setText(std::string text) {
    if (Control::change(text_, std::move(text)))
        change();
}

std::string ListControl::selectedText() const {
    return selected_ == kNone ? std::string() : items_[static_cast<std::size_t>(selected_)].text;
}

bool ListControl::select(int index) {
    if (!place(index))
        return false;
    click();
    return true;
}

bool ListControl::place(int index) {
    if (index < kNone || index >= count())
        return false;
    change(selected_, index);
    return true;
}

void ListControl::add(Item item) {
    items_.push_back(std::move(item));
    itemsChanged();
}

void ListControl::remove(int index) {
    assert(index >= 0 && index < count());
    items_.erase(items_.begin() + index);
    if (selected_ == index)
        selected_ = kNone;
    else if (selected_ > index)
        --selected_;
    itemsChanged();
}

void ListControl::setItems(std::vector<Item> items) {
    items_ = std::move(items);
    selected_ = kNone;
    itemsChanged();
}

void ListControl::itemsChanged() {
    ++revision_;
    notify();
}

bool Volume::setPercent(int percent) {
    if (percent < 0 || percent > kLoudest)
        return false;
    if (Control::change(percent_, percent))
        change();
    return true;
}

void Picker::setValue(platform::DateTime value) {
    if (Control::change(value_, value))
        change();
}

} // namespace brovin::ui
