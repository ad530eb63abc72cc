#include "cleaner/log_commands.h"

#include "cleaner/deletion_log.h"

#include <string>

namespace brovin::cleaner {

namespace box = platform::box;
using companion::ForceBox;
using language::Message;

void LogCommands::cmdInspect_Click() {
    const std::string log = needs_.folder.path(std::string(kLogFile));
    if (!needs_.shell.openDocument(log))
        needs_.speech.announcer.agentMsgBox(needs_.speech.messages.getText("logNotOpened", {log}),
                                            box::kInformation, "", ForceBox::No);
}

void LogCommands::cmdEmpty_Click() {
    const auto& messages = needs_.speech.messages;
    const auto answer = needs_.speech.announcer.agentMsgBox(
        messages.getMessage(Message::ConfirmEmptyLog), box::kYesNo | box::kExclamation,
        messages.getMessage(Message::ConfirmEmptyLogTitle), ForceBox::Yes);
    if (answer != platform::Button::Yes)
        return;
    const platform::Status emptied = empty();
    if (emptied) {
        needs_.speech.announcer.agentMsgBox(messages.getMessage(Message::LogIsEmpty), box::kInformation,
                                            messages.getMessage(Message::LogEmptied), ForceBox::No);
        return;
    }
    const platform::Failure& failure = emptied.failure();
    needs_.speech.announcer.agentMsgBox("An error occurred while trying to empty log.\r\n\r\nError " +
                                            std::to_string(failure.number) + ": " + failure.reason +
                                            "\r\n\r\nReally, it serves you right.",
                                        box::kCritical, "Ner ner, ner ner ner.", ForceBox::No);
}

platform::Status LogCommands::empty() {
    auto log = needs_.folder.openText(std::string(kLogFile), platform::OpenMode::Replace);
    if (!log)
        return log.failure();
    const platform::DateTime now = needs_.clock.now();
    const std::string marker = needs_.speech.messages.getMessage(Message::LogEmptied) + " - " +
                               needs_.regional.longTime(now) + " " + needs_.regional.longDate(now);
    for (const std::string_view line : {kLogSeparator, std::string_view(marker), kLogSeparator})
        if (auto written = (*log)->writeLine(line); !written)
            return written;
    return platform::Done{};
}

} // namespace brovin::cleaner
