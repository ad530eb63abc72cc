#pragma once

#include "language/message_table.h"
#include "platform/shell.h"
#include "ui/frm_download.h"
#include "update/answers.h"

#include <string>

namespace brovin::update {

/// The download window of a build without the maker's key. It can prove nothing, so it fetches and starts
/// nothing: it tells what has changed, and leads to the page that has the new version.
class UpdateByHand {
public:
    struct Needs {
        ui::FrmDownload& form;
        const language::MessageTable& messages;
        platform::Shell& shell;
    };
    /// Ties the window's events to itself and dresses the window; `page` is the internet shortcut to follow.
    UpdateByHand(const Needs& needs, const ProgramOffer& offer, std::string page);

    void cmdStart_Click();

    /// Whether the user has gone to the page.
    [[nodiscard]] bool pageOpened() const { return pageOpened_; }

private:
    Needs needs_;
    std::string page_;
    bool pageOpened_ = false;
};

} // namespace brovin::update
