#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace brovin::language {

/// The numbered messages of the active language. A message that its file does not set is empty.
class MessageTable {
public:
    static constexpr std::size_t kSlots = 101;

    void clear() { slots_.fill({}); }
    /// False: there is no such number, and nothing is set.
    bool set(std::int32_t number, std::string_view text);

    /// Message `number`, 0 to 100, with "%1", "%2" … replaced by the arguments in their order and then the
    /// mark
    /// "\n" by CR LF. What stands in an argument is looked at like the message's own text: a later argument
    /// or the mark is replaced in it too. Messages use nine placeholders at most: "%10" is "%1" and a zero.
    [[nodiscard]] std::string getMessage(std::int32_t number,
                                         std::initializer_list<std::string_view> arguments = {}) const;

private:
    std::array<std::string, kSlots> slots_;
};

} // namespace brovin::language
