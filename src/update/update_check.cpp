#include "update/update_check.h"

#include "update/address.h"
#include "update/makers_answers.h"
#include "update/offer_text.h"
#include "update/update_by_hand.h"
#include "update/update_download.h"

#include <cstddef>
#include <utility>

namespace brovin::update {
namespace {

namespace box = platform::box;
namespace setting = settings::setting;
using companion::ForceBox;
using language::Message;
using platform::Button;

constexpr const char* kPackTitle = "Language update";

/// The scheduler stands still during a check, and a check does not begin in the midst of another.
class Standstill {
public:
    Standstill(ui::Timer& timer, bool& checking) : timer_(timer), checking_(checking) {
        checking_ = true;
        timer_.setEnabled(false);
    }
    ~Standstill() {
        checking_ = false;
        timer_.setEnabled(restart);
    }
    Standstill(const Standstill&) = delete;
    Standstill& operator=(const Standstill&) = delete;

    bool restart = true;

private:
    ui::Timer& timer_;
    bool& checking_;
};

/// The shown entry of a language file.
std::string entryText(const ui::ProgramPage& page, const language::LanguageCatalogue& catalogue,
                      const std::string& file) {
    const auto entry = catalogue.entryOf(file);
    return entry ? page.lstLang.items()[static_cast<std::size_t>(*entry)].text : file;
}

} // namespace

UpdateCheck::UpdateCheck(const Needs& needs, const Machine& machine)
    : needs_(needs),
      machine_(machine), running_{needs.program.major, needs.program.minor, needs.program.revision},
      pack_({needs.programPage, needs.messages, needs.catalogue, needs.folder, machine.transfer,
             machine.key}) {}

UpdateCheck::Outcome UpdateCheck::check() {
    if (checking_)
        return Outcome::Offered; // the check under way tells what there is to tell
    Standstill standstill(needs_.timer, checking_);
    MakersAnswers answers(machine_.transfer, machine_.server);
    const auto answer = answers.ask("myid=brovin&myver=" + running_.text());
    const auto offer = answer ? programOffer(*answer) : std::nullopt;
    const bool newer = offer && countsAsNewer(offer->version, running_);
    if (newer && offerProgram(*offer) == Ending::Replaced) {
        standstill.restart = false;
        return Outcome::Offered;
    }
    const bool packs = offerPacks(answers);
    if (newer || packs)
        return Outcome::Offered;
    return !answer || answer->empty() ? Outcome::NoAnswer : Outcome::Nothing;
}

UpdateCheck::Ending UpdateCheck::offerProgram(const ProgramOffer& offer) {
    if (ask(questionFor(offer), needs_.messages.getMessage(Message::NewVersionTitle)) && sureAbout(offer))
        return machine_.key.present() ? download(offer) : showPage(offer);
    needs_.settings.write(setting::kNoCheck, "1");
    cancelled();
    return Ending::GoesOn;
}

std::string UpdateCheck::questionFor(const ProgramOffer& offer) const {
    std::string question = needs_.messages.getMessage(Message::VersionOffered, {needs_.phrases.getDude()});
    question += needs_.messages.getMessage(Message::OfferedVersion, {std::to_string(offer.version.major),
                                                                     std::to_string(offer.version.minor),
                                                                     std::to_string(offer.version.revision)});
    question += sizeText(needs_.messages, offer);
    if (offer.version < running_)
        question += "\r\n\r\n" + needs_.messages.getText("updateOlder", {running_.text()});
    return question;
}

/// Going back to an older version, which the program could do by itself, wants a second thought.
bool UpdateCheck::sureAbout(const ProgramOffer& offer) {
    return !machine_.key.present() || offer.version >= running_ ||
           ask(needs_.messages.getText("updateOlderSure", {running_.text(), offer.version.text()}),
               needs_.messages.getMessage(Message::NewVersionTitle));
}

UpdateCheck::Ending UpdateCheck::showPage(const ProgramOffer& offer) {
    ui::FrmDownload form;
    const UpdateByHand window({form, needs_.messages, needs_.shell}, offer, needs_.folder.path("update.url"));
    form.window.setVisible(true);
    machine_.windows.showModal(form);
    if (!window.pageOpened())
        cancelled();
    return Ending::GoesOn;
}

UpdateCheck::Ending UpdateCheck::download(const ProgramOffer& offer) {
    ui::FrmDownload form;
    UpdateDownload window({form, needs_.messages, needs_.dialogs, machine_.transfer, machine_.downloads,
                           machine_.key, needs_.pump},
                          offer, needs_.folder.path("DOWNLOAD.AVI"));
    form.window.setVisible(true);
    machine_.windows.showModal(form);
    if (window.cancelled()) {
        cancelled();
        return Ending::GoesOn;
    }
    if (const platform::Status started = window.install(); !started) {
        tell(needs_.messages.getText("updateNotStarted", {needs_.messages.reason(started.failure()),
                                                          window.localFile() + ".exe"}),
             box::kCritical, needs_.messages.getMessage(Message::NewVersionTitle));
        return Ending::GoesOn;
    }
    needs_.pump.pump();
    replaced();
    return Ending::Replaced;
}

bool UpdateCheck::offerPacks(MakersAnswers& answers) {
    // A pack that is taken makes the catalogue anew, so the questions are those of the one at the beginning.
    const auto files = needs_.catalogue.langFiles;
    const auto versions = needs_.catalogue.langVersions;
    bool any = false;
    for (std::size_t slot = 0; slot < files.size(); ++slot) {
        if (files[slot].empty())
            continue;
        const auto answer =
            answers.ask("myid=lang&mylang=" + queryValue(files[slot]) + "&myver=" + versions[slot]);
        const auto offer = answer ? packOffer(*answer) : std::nullopt;
        if (!offer)
            continue;
        any = true;
        if (ask("Version " + offer->version + " of the " +
                    entryText(needs_.programPage, needs_.catalogue, files[slot]) +
                    " language pack is available. Would you like to download it now?",
                kPackTitle))
            fetchPack(*offer, files[slot]);
    }
    return any;
}

void UpdateCheck::fetchPack(const PackOffer& offer, const std::string& file) {
    const PackOutcome outcome = pack_.fetch(offer, file);
    if (outcome.installed)
        tell(needs_.messages.getMessage(Message::PackInstalled), box::kInformation, kPackTitle);
    else if (outcome.reason.empty())
        tell(needs_.messages.getMessage(Message::PackUnusable), box::kExclamation, kPackTitle);
    else
        tell(needs_.messages.getText("packNotTaken", {outcome.reason}), box::kExclamation, kPackTitle);
}

void UpdateCheck::cancelled() {
    needs_.frame.sbStatus.setPanel(needs_.messages.getMessage(Message::OfferCancelled));
}

void UpdateCheck::cmdUpdate_Click() {
    if (checking_)
        return;
    needs_.settings.write(setting::kNoCheck, "0");
    const std::string before = needs_.frame.sbStatus.panel();
    const std::string asking = needs_.messages.getMessage(Message::AskingForUpdates);
    needs_.frame.sbStatus.setPanel(asking);
    needs_.pump.pump();
    const Outcome outcome = check();
    if (needs_.frame.sbStatus.panel() == asking)
        needs_.frame.sbStatus.setPanel(before);
    const std::string title = needs_.messages.getMessage(Message::UpdateCheckTitle);
    if (outcome == Outcome::Nothing)
        tell(needs_.messages.getMessage(Message::NothingNewer, {needs_.phrases.getDude()}), box::kInformation,
             title);
    else if (outcome == Outcome::NoAnswer && !needs_.life.exitConfirmed)
        tell(needs_.messages.getMessage(Message::NoUpdateAnswer), box::kExclamation, title);
}

void UpdateCheck::tell(const std::string& text, platform::BoxStyle style, const std::string& title) {
    needs_.announcer.agentMsgBox(text, style, title, ForceBox::No);
}

bool UpdateCheck::ask(const std::string& question, const std::string& title) {
    return needs_.announcer.agentMsgBox(question, box::kYesNo | box::kQuestion, title, ForceBox::Yes) ==
           Button::Yes;
}

} // namespace brovin::update
