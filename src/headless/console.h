#pragma once

#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/event_pump.h"
#include "platform/notification_area.h"
#include "platform/shell.h"

#include <cstdint>
#include <functional>
#include <iosfwd>

namespace brovin::headless {

/// The terminal, or what stands in its place.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool interactive = false; ///< somebody can answer at `in`
    bool progress = false;    ///< `err` is a terminal that can show progress
    /// Waits for somebody to type at `in`. False: the user wants the program to stop instead. Empty: reading
    /// waits.
    std::function<bool()> waitForAnswer = {};
};

/// Says nothing, and takes the answer that does nothing.
class NoDialogs : public platform::Dialogs {
public:
    void setLanguage(long /*languageId*/) override {}
    platform::Button messageBox(const std::string& /*text*/, platform::BoxStyle /*style*/,
                                const std::string& /*title*/) override {
        return platform::Button::Cancel;
    }
    std::optional<std::string> inputBox(const std::string& /*prompt*/, const std::string& /*title*/,
                                        const std::string& /*text*/) override {
        return std::nullopt;
    }
    std::string browseForFolder(const std::string& /*prompt*/) override { return {}; }
    std::optional<std::size_t> choose(const std::string& /*prompt*/,
                                      const std::vector<std::string>& /*lines*/) override {
        return std::nullopt;
    }
};

/// Asks at the terminal. Where nobody can answer, the answer is the one that does nothing: No, or Cancel. It
/// asks nothing else, and in the program's own words.
class ConsoleDialogs final : public NoDialogs {
public:
    explicit ConsoleDialogs(const Console& console) : console_(console) {}

    platform::Button messageBox(const std::string& text, platform::BoxStyle style,
                                const std::string& title) override;

    /// How many questions nobody was there to answer.
    [[nodiscard]] std::uint64_t unanswered() const { return unanswered_; }

private:
    [[nodiscard]] bool comesAnswer() const;

    Console console_;
    std::uint64_t unanswered_ = 0;
};

// What a console has not.

class NoShell final : public platform::Shell {
public:
    bool openDocument(const std::string& /*path*/) override { return false; }
    void setForegroundWindow() override {}
    void endProgram() override {}
};

class NoClipboard final : public platform::Clipboard {
public:
    [[nodiscard]] bool setText(const std::string& /*text*/) override { return false; }
};

class NoNotificationArea final : public platform::NotificationArea {
public:
    [[nodiscard]] bool available() const override { return false; }
    bool add(const std::string& /*tip*/) override { return false; }
    void setTip(const std::string& /*tip*/) override {}
    void remove() override {}
};

} // namespace brovin::headless
