#pragma once

#include "platform/dialogs.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brovin::fakes {

/// Boxes that record what they show and answer what the test has laid ready: when nothing is, the box is
/// cancelled as its close button would.
class FakeDialogs final : public platform::Dialogs {
public:
    struct Box {
        std::string text;
        platform::BoxStyle style = 0;
        std::string title;
    };
    struct Input {
        std::string prompt;
        std::string title;
        std::string text;
    };
    std::vector<Box> boxes;
    std::vector<Input> inputs;
    std::vector<std::string> prompts; ///< of the folder picker
    std::deque<platform::Button> answers;
    std::deque<std::optional<std::string>> typed;
    std::deque<std::string> folders;
    std::vector<std::vector<std::string>> offered; ///< the lines of each choice
    std::deque<std::size_t> choices;
    long language = 0;
    std::function<void(const Box&)> onBox; ///< what happens while a box is open

    void setLanguage(long languageId) override { language = languageId; }
    platform::Button messageBox(const std::string& text, platform::BoxStyle style,
                                const std::string& title) override {
        boxes.push_back({text, style, title});
        if (onBox)
            onBox(boxes.back());
        const int buttons = style & platform::box::kButtons;
        if (buttons == platform::box::kOk)
            return platform::Button::Ok;
        const auto closed =
            buttons == platform::box::kYesNo ? platform::Button::No : platform::Button::Cancel;
        return next(answers).value_or(closed);
    }
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& text) override {
        inputs.push_back({prompt, title, text});
        return next(typed).value_or(std::nullopt);
    }
    std::string browseForFolder(const std::string& prompt) override {
        prompts.push_back(prompt);
        return next(folders).value_or("");
    }
    std::optional<std::size_t> choose(const std::string& /*prompt*/,
                                      const std::vector<std::string>& lines) override {
        offered.push_back(lines);
        return next(choices);
    }

private:
    template <class T>
    static std::optional<T> next(std::deque<T>& ready) {
        if (ready.empty())
            return std::nullopt;
        T first = std::move(ready.front());
        ready.pop_front();
        return first;
    }
};

} // namespace brovin::fakes
