#pragma once

#include "language/messages.h"
#include "language/texts.h"
#include "platform/result.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>

namespace brovin::language {

/// The numbered messages of the active language, and the texts that have names. A message that its file does
/// not set is empty, a text is the built-in English one.
class MessageTable {
public:
    static constexpr std::size_t kSlots = 101;

    void clear() { *this = {}; }
    /// The text of message `number`, 0 to 100, as files have it. False: there is no such number, and nothing
    /// is set.
    bool set(std::int32_t number, std::string_view text);
    /// The same for a text with a name.
    bool setText(std::string_view name, std::string_view text);

    /// The message with "%1", "%2" … replaced by the arguments in their order and then
    /// the mark "\n" by CR LF. What stands in an argument is looked at like the message's own text: a later
    /// argument or the mark is replaced in it too. Messages use nine placeholders at most: "%10" is
    /// "%1" and a zero.
    [[nodiscard]] std::string getMessage(Message message,
                                         std::initializer_list<std::string_view> arguments = {}) const;
    /// A text with a name; places and marks are those of messages.
    [[nodiscard]] std::string getText(Text text,
                                      std::initializer_list<std::string_view> arguments = {}) const;
    /// Why something failed, in the active language where there is a text of these words,
    /// else as it was told.
    [[nodiscard]] std::string reason(const platform::Failure& failure) const;

private:
    [[nodiscard]] std::string textOf(std::size_t row,
                                     std::initializer_list<std::string_view> arguments) const;

    std::array<std::string, kSlots> slots_;
    std::array<std::string, std::size(kTextRows)> texts_; ///< empty: the built-in one
};

} // namespace brovin::language
