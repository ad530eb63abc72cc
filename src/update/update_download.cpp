#include "update/update_download.h"

#include "platform/reasons.h"
#include "text/numbers.h"
#include "text/strings.h"
#include "update/address.h"
#include "update/offer_text.h"
#include "update/proof.h"

#include <utility>

namespace brovin::update {
namespace {

namespace box = platform::box;
using language::Message;
using platform::TransferState;

constexpr std::uint64_t kKb = 1024;
constexpr std::size_t kPiece = 1024;
/// What is shorter is an error page.
constexpr std::uint64_t kShortest = 1000;
constexpr std::uint64_t kLargest = std::uint64_t{2} << 30U;

/// The first letters of the program's file name, by which its temporary files are known.
constexpr std::string_view kPrefix = "bro";

std::uint64_t lengthOf(const std::optional<std::string>& header) {
    return header ? text::wholeNumber<std::uint64_t>(*header).value_or(0) : 0;
}

} // namespace

UpdateDownload::UpdateDownload(const Needs& needs, ProgramOffer offer, const std::string& animation)
    : needs_(needs), offer_(std::move(offer)) {
    needs_.form.cmdStart.click = [this] { cmdStart_Click(); };
    needs_.form.cmdCancel.click = [this] { cmdCancel_Click(); };
    needs_.form.window.close = [this] { Form_Close(); };
    needs_.transfer.stateChanged = [this](TransferState state) { Inet1_StateChanged(state); };
    dress(animation);
}

UpdateDownload::~UpdateDownload() {
    needs_.transfer.stateChanged = nullptr;
}

void UpdateDownload::dress(const std::string& animation) {
    ui::FrmDownload& form = needs_.form;
    const std::string title =
        needs_.messages.getMessage(Message::NewVersionTitle) + sizeText(needs_.messages, offer_);
    form.window.setCaption(title);
    form.cmdStart.setCaption(needs_.messages.getMessage(Message::DownloadButton));
    form.cmdCancel.setCaption(needs_.messages.getMessage(Message::CancelButton));
    form.txtUpdates.setCaption(
        needs_.messages.getMessage(Message::ChangesBelow)); // what a screen reader calls them
    form.ProgressBar1.setCaption(title);
    form.cmdStart.setDefault(true);
    form.ProgressBar1.setValue(0);
    show(needs_.messages.getMessage(Message::DownloadReady));
    form.Animation1.open(animation);
    splitChanges(offer_.changes);
}

void UpdateDownload::show(const std::string& text) {
    needs_.form.lblText.setCaption(text::replaceAll(text, "&", ""));
}

void UpdateDownload::splitChanges(std::string_view list) {
    needs_.form.txtUpdates.setText(changesText(list));
    if (!list.empty())
        show(needs_.messages.getMessage(Message::ChangesBelow) + " " + needs_.form.lblText.caption());
}

void UpdateDownload::cmdStart_Click() {
    if (running())
        return;
    needs_.form.cmdStart.setEnabled(false);
    for (const std::string_view ending : {".tmp", ".tmp.exe", ".tmp.exe.deb"})
        needs_.folder.removeLeftOvers(kPrefix, ending);
    cancelRequested_ = false;
    auto file = needs_.folder.create(kPrefix);
    if (!file) {
        const platform::Failure& failure = file.failure();
        fail(notStarted(failure));
        return;
    }
    file_ = std::move(*file);
    localFile_ = file_->name();
    show(needs_.messages.getMessage(Message::Connecting));
    request(Phase::Asking, statementUrl(offer_.url));
    needs_.pump.pump();
}

void UpdateDownload::request(Phase phase, const std::string& url) {
    phase_ = phase;
    const platform::Status started = needs_.transfer.execute({url});
    if (!started)
        fail(notStarted(started.failure()));
}

void UpdateDownload::Inet1_StateChanged(TransferState state) {
    if (!running() || cancelRequested_)
        return;
    if (state == TransferState::Error) {
        const platform::Failure failure = needs_.transfer.failure();
        constexpr int kNotFound = 404;
        if (phase_ == Phase::Asking && failure.number == kNotFound)
            distrust("signatureMissing");
        else
            fail(notStarted(failure));
    } else if (phase_ == Phase::Asking)
        readStatement();
    else
        receive();
}

void UpdateDownload::readStatement() {
    std::string text;
    for (;;) {
        const auto piece = needs_.transfer.readPiece(kPiece);
        if (cancelRequested_)
            return;
        if (!piece || text.size() > kLongestStatement)
            return distrust("signatureUnreadable");
        if ((*piece).empty())
            break;
        text.append(*piece);
    }
    if (const auto reason = whyNotOffered(
            text, {Kind::Program, fileNameOf(offer_.url), offer_.version.text(), offer_.sizeKb}, needs_.key))
        return distrust(*reason);
    statement_ = *statementOf(text);
    request(Phase::Receiving, offer_.url);
}

void UpdateDownload::receive() {
    cancelRequested_ = false;
    const std::uint64_t length = lengthOf(needs_.transfer.header("Content-length"));
    if (length < kShortest) {
        needs_.transfer.cancel();
        return fail(needs_.messages.getMessage(Message::DownloadTooShort));
    }
    if (length > kLargest || length != statement_.claim.size) {
        needs_.transfer.cancel();
        return distrust("notTheSignedSize");
    }
    needs_.form.ProgressBar1.setMaximum(static_cast<double>(length) / kKb);
    needs_.form.Animation1.setPlaying(true);
    if (readBody(length))
        finish(length);
}

/// False: it did not come as announced or was cancelled, and that has been dealt with.
bool UpdateDownload::readBody(std::uint64_t length) {
    std::uint64_t come = 0;
    while (!cancelRequested_) {
        const auto piece = needs_.transfer.readPiece(kPiece);
        if (cancelRequested_)
            break;
        if (!piece) {
            throwAway(told("connectionBroke", piece.failure()));
            return false;
        }
        if ((*piece).empty())
            break;
        come += (*piece).size();
        const platform::Status written = come <= length ? file_->append(*piece) : platform::Done{};
        if (come > length || !written) {
            needs_.transfer.cancel();
            if (come > length)
                distrust("tooMuchCame");
            else
                throwAway(told("diskRefused", written.failure()));
            return false;
        }
        showAmounts(come, length);
        needs_.pump.pump();
    }
    if (cancelRequested_)
        return false;
    if (come < length)
        distrust("tooLittleCame");
    return come == length;
}

void UpdateDownload::showAmounts(std::uint64_t come, std::uint64_t length) {
    needs_.form.ProgressBar1.setValue(static_cast<double>(come) / kKb);
    show(needs_.messages.getMessage(Message::DownloadProgress,
                                    {std::to_string(come / kKb), std::to_string(length / kKb)}));
}

void UpdateDownload::finish(std::uint64_t length) {
    if (const platform::Status closed = file_->close(); !closed)
        return throwAway(told("diskRefused", closed.failure()));
    if (file_->size() != length)
        return distrust("diskTookLess");
    const std::string reason = whyNotTrusted();
    if (cancelRequested_)
        return;
    if (!reason.empty())
        return throwAway(reason);
    if (const platform::Status copied = file_->alsoNamed(".exe"); !copied)
        return throwAway(told("diskRefused", copied.failure()));
    complete();
}

/// Empty: it is trusted.
std::string UpdateDownload::whyNotTrusted() {
    const auto hash = file_->sha512([this] {
        needs_.pump.pump();
        return !cancelRequested_;
    });
    if (!hash)
        return told("notReadAgain", hash.failure());
    const auto reason = whyNotReceived(statement_, {file_->size(), *hash});
    return reason ? needs_.messages.getText(*reason) : std::string();
}

void UpdateDownload::complete() {
    phase_ = Phase::Complete;
    needs_.form.Animation1.setPlaying(false);
    show(needs_.messages.getMessage(Message::DownloadComplete));
    needs_.form.cmdCancel.setCaption(needs_.messages.getMessage(Message::InstallButton));
    needs_.form.cmdStart.setDefault(false);
    needs_.form.cmdCancel.setDefault(true);
}

/// Nothing is kept of what came, and the user may try again.
void UpdateDownload::fail(const std::string& text) {
    phase_ = Phase::Ready;
    if (file_)
        file_->remove();
    file_.reset();
    needs_.form.Animation1.setPlaying(false);
    needs_.form.ProgressBar1.setValue(0);
    show(text);
    needs_.form.cmdStart.setEnabled(true);
}

std::string UpdateDownload::notStarted(const platform::Failure& why) const {
    return needs_.messages.getMessage(Message::DownloadNotStarted,
                                      {std::to_string(why.number), needs_.messages.reason(why)});
}

std::string UpdateDownload::told(language::Text what, const platform::Failure& why) const {
    return needs_.messages.getText(what, {needs_.messages.reason(why)});
}

void UpdateDownload::throwAway(const std::string& reason) {
    fail(needs_.messages.getMessage(Message::DownloadUntrusted) + " " + reason);
}

void UpdateDownload::cmdCancel_Click() {
    if (phase_ == Phase::Complete)
        needs_.form.window.setVisible(false); // what follows is the installation
    else
        Form_Close();
}

void UpdateDownload::Form_Close() {
    if (cancelRequested_)
        return;
    if (running() &&
        needs_.dialogs.messageBox(needs_.messages.getMessage(Message::ConfirmCancelDownload),
                                  box::kYesNo | box::kExclamation, "Cancel Update") != platform::Button::Yes)
        return;
    leave();
}

void UpdateDownload::leave() {
    cancelRequested_ = true;
    needs_.transfer.cancel();
    if (file_)
        file_->remove(); // a reading loop beneath may still hold it
    needs_.form.Animation1.setPlaying(false);
    cancelled_ = true;
    needs_.form.window.setVisible(false);
}

platform::Status UpdateDownload::install() {
    if (phase_ != Phase::Complete || !file_)
        return platform::Failure{0, platform::reason::kNoInstaller};
    return file_->startInstaller();
}

} // namespace brovin::update
