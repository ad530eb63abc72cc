#include "language/message_table.h"

#include "text/strings.h"

#include <algorithm>
#include <cassert>

namespace brovin::language {
namespace {

bool exists(std::int32_t number) {
    return number >= 0 && static_cast<std::size_t>(number) < MessageTable::kSlots;
}

std::string filledIn(std::string text, std::initializer_list<std::string_view> arguments) {
    int placeholder = 0;
    for (const std::string_view argument : arguments)
        text::replaceEach(text, "%" + std::to_string(++placeholder), argument);
    text::replaceEach(text, "\\n", "\r\n");
    return text;
}

} // namespace

bool MessageTable::set(std::int32_t number, std::string_view text) {
    if (!exists(number))
        return false;
    slots_[static_cast<std::size_t>(number)] = text;
    return true;
}

bool MessageTable::setText(std::string_view name, std::string_view text) {
    const auto* row = std::ranges::find(kTextRows, name, &TextRow::name);
    if (row == std::end(kTextRows))
        return false;
    texts_[static_cast<std::size_t>(row - kTextRows)] = text;
    return true;
}

std::string MessageTable::getMessage(Message message,
                                     std::initializer_list<std::string_view> arguments) const {
    const std::int32_t number = numberOf(message);
    assert(exists(number));
    return filledIn(slots_[static_cast<std::size_t>(number)], arguments);
}

std::string MessageTable::textOf(std::size_t row, std::initializer_list<std::string_view> arguments) const {
    const std::string& own = texts_[row];
    return filledIn(own.empty() ? std::string(kTextRows[row].english) : own, arguments);
}

std::string MessageTable::getText(Text text, std::initializer_list<std::string_view> arguments) const {
    return textOf(text.row(), arguments);
}

std::string MessageTable::reason(const platform::Failure& failure) const {
    const std::string number = std::to_string(failure.number);
    for (std::size_t row = 0; row < texts_.size(); ++row)
        if (filledIn(std::string(kTextRows[row].english), {number}) == failure.reason)
            return textOf(row, {number});
    return failure.reason;
}

} // namespace brovin::language
