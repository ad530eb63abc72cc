#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace brovin::platform {

/// What a message box shows: buttons and icon, added up. The numbers are those of the usual message-box
/// convention.
using BoxStyle = int;
namespace box {
inline constexpr BoxStyle kOk = 0;
inline constexpr BoxStyle kOkCancel = 1;
inline constexpr BoxStyle kYesNo = 4;
inline constexpr BoxStyle kButtons = 7; ///< the bits that choose the buttons
inline constexpr BoxStyle kCritical = 16;
inline constexpr BoxStyle kQuestion = 32;
inline constexpr BoxStyle kExclamation = 48;
inline constexpr BoxStyle kInformation = 64;
inline constexpr BoxStyle kIcons = 112; ///< the bits that choose the icon
} // namespace box

/// The button that ended a message box; None stands for "there was no box".
enum class Button { None = 0, Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// The windows that ask the user something and wait for the answer. Texts are shown as they stand, never as
/// markup; CR LF breaks a line.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// The language of the boxes' own buttons, by its Windows identifier; 0: none in particular. One that the
    /// machine does not know leaves them in English.
    virtual void setLanguage(long languageId) = 0;

    /// Shows a message on top of the program's window. Closing it otherwise answers Cancel, or No where there
    /// is no Cancel.
    virtual Button messageBox(const std::string& text, BoxStyle style, const std::string& title) = 0;

    /// Asks for a line of text; nullopt when it is cancelled.
    virtual std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                                const std::string& text) = 0;

    /// Lets the user choose a folder: its full path as the disk spells it, or empty when it is cancelled.
    virtual std::string browseForFolder(const std::string& prompt) = 0;

    /// Lets the user choose one of these lines, by its index; nullopt when it is cancelled.
    virtual std::optional<std::size_t> choose(const std::string& prompt,
                                              const std::vector<std::string>& lines) = 0;
};

} // namespace brovin::platform
