#include "language/message_table.h"

#include "text/strings.h"

#include <cassert>

namespace brovin::language {
namespace {

bool exists(std::int32_t number) {
    return number >= 0 && static_cast<std::size_t>(number) < MessageTable::kSlots;
}

} // namespace

bool MessageTable::set(std::int32_t number, std::string_view text) {
    if (!exists(number))
        return false;
    slots_[static_cast<std::size_t>(number)] = text;
    return true;
}

std::string MessageTable::getMessage(std::int32_t number,
                                     std::initializer_list<std::string_view> arguments) const {
    assert(exists(number));
    std::string message = slots_[static_cast<std::size_t>(number)];
    int placeholder = 0;
    for (const std::string_view argument : arguments)
        message = text::replaceAll(message, "%" + std::to_string(++placeholder), argument);
    return text::replaceAll(message, "\\n", "\r\n");
}

} // namespace brovin::language
