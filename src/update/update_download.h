#pragma once

#include "language/message_table.h"
#include "platform/dialogs.h"
#include "platform/download_folder.h"
#include "platform/event_pump.h"
#include "platform/internet_transfer.h"
#include "platform/makers_key.h"
#include "ui/frm_download.h"
#include "update/answers.h"
#include "update/statement.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace brovin::update {

/// What the download window does: fetches an installer into a temporary file and, when it is complete and the
/// maker vouches for it, offers to install it.
class UpdateDownload {
public:
    struct Needs {
        ui::FrmDownload& form;
        const language::MessageTable& messages;
        platform::Dialogs& dialogs;
        platform::InternetTransfer& transfer;
        platform::DownloadFolder& folder;
        const platform::MakersKey& key;
        platform::EventPump& pump;
    };
    /// Ties the window's events to itself and dresses the window; `animation` is the file that moves in it.
    UpdateDownload(const Needs& needs, ProgramOffer offer, const std::string& animation);
    ~UpdateDownload();
    UpdateDownload(const UpdateDownload&) = delete;
    UpdateDownload& operator=(const UpdateDownload&) = delete;

    /// Shows a list that is divided by "|", a line each.
    void splitChanges(std::string_view list);

    void cmdStart_Click();
    void cmdCancel_Click();
    /// The close box: never a way to install.
    void Form_Close();
    void Inet1_StateChanged(platform::TransferState state);

    /// Whether the window was left without a file to install.
    [[nodiscard]] bool cancelled() const { return cancelled_; }
    /// The path of the temporary file; the installer is this and ".exe".
    [[nodiscard]] const std::string& localFile() const { return localFile_; }
    /// Starts the installer that has come.
    platform::Status install();

private:
    enum class Phase { Ready, Asking, Receiving, Complete };

    void dress(const std::string& animation);
    void show(const std::string& text);
    void request(Phase phase, const std::string& url);
    void readStatement();
    void receive();
    [[nodiscard]] bool readBody(std::uint64_t length);
    void showAmounts(std::uint64_t come, std::uint64_t length);
    void finish(std::uint64_t length);
    [[nodiscard]] std::string whyNotTrusted();
    void complete();
    void fail(const std::string& text);
    void throwAway(const std::string& reason);
    void distrust(language::Text reason) { throwAway(needs_.messages.getText(reason)); }
    [[nodiscard]] std::string told(language::Text what, const platform::Failure& why) const;
    [[nodiscard]] std::string notStarted(const platform::Failure& why) const;
    void leave();
    [[nodiscard]] bool running() const { return phase_ == Phase::Asking || phase_ == Phase::Receiving; }

    Needs needs_;
    ProgramOffer offer_;
    Phase phase_ = Phase::Ready;
    bool cancelRequested_ = false;
    bool cancelled_ = false;
    Statement statement_;
    std::unique_ptr<platform::DownloadFile> file_;
    std::string localFile_;
};

} // namespace brovin::update
