#pragma once

#include "desktop/machine/toolkit_language.h"
#include "platform/dialogs.h"

#include <functional>

class QWidget;

namespace brovin::desktop {

/// Message boxes, the input box and the folder picker, in front of the options window.
class QtDialogs final : public platform::Dialogs {
public:
    /// The window that owns the boxes while it is visible; null: none.
    void setOwner(QWidget* owner) { owner_ = owner; }

    /// Whether the box that is about to open was asked for; empty: always.
    std::function<bool()> asked;

    /// Whether one of them is open: the program waits for the answer, and other events wait for the program.
    [[nodiscard]] bool open() const { return open_ > 0; }

    void setLanguage(long languageId) override { language_.speak(languageId); }
    platform::Button messageBox(const std::string& text, platform::BoxStyle style,
                                const std::string& title) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& text) override;
    std::string browseForFolder(const std::string& prompt) override;
    std::optional<std::size_t> choose(const std::string& prompt,
                                      const std::vector<std::string>& lines) override;

private:
    [[nodiscard]] QWidget* visibleOwner() const;

    ToolkitLanguage language_;
    QWidget* owner_ = nullptr;
    int open_ = 0;
};

} // namespace brovin::desktop
