#pragma once

#include "companion/announcer.h"
#include "companion/phrase_engine.h"
#include "language/language_catalogue.h"
#include "language/message_table.h"
#include "platform/dialogs.h"
#include "platform/download_folder.h"
#include "platform/event_pump.h"
#include "platform/internet_transfer.h"
#include "platform/makers_key.h"
#include "platform/program_folder.h"
#include "platform/shell.h"
#include "settings/program_info.h"
#include "settings/settings.h"
#include "ui/frm_download.h"
#include "ui/pages/program_page.h"
#include "ui/pages/window_frame.h"
#include "ui/program_life.h"
#include "update/answers.h"
#include "update/language_pack.h"

#include <optional>
#include <string>

namespace brovin::update {

class MakersAnswers;

/// What it takes of the machine to update the program.
struct Machine {
    platform::InternetTransfer& transfer;
    platform::DownloadFolder& downloads;
    const platform::MakersKey& key;
    ui::DownloadWindowHost& windows;
    std::string server; ///< where the maker's server is, without a path
};

/// Asks the maker's server for a newer program and newer language files, and offers what there is.
class UpdateCheck {
public:
    struct Needs {
        ui::WindowFrame& frame;
        ui::ProgramPage& programPage;
        const ui::ProgramLife& life;
        ui::Timer& timer; ///< stands still during a check
        settings::Settings& settings;
        const language::MessageTable& messages;
        companion::PhraseEngine& phrases;
        companion::Announcer& announcer;
        language::LanguageCatalogue& catalogue;
        platform::ProgramFolder& folder;
        platform::Dialogs& dialogs;
        platform::Shell& shell;
        platform::EventPump& pump;
        const settings::ProgramInfo& program;
    };
    UpdateCheck(const Needs& needs, const Machine& machine);

    /// An installer has been started, and the program is to make room for it.
    ui::Event<> replaced;

    /// Finding nothing is no news; the user is only told of what is on offer.
    void checkForUpdates() { check(); }
    /// The button: whoever presses it wants an answer.
    void cmdUpdate_Click();

private:
    enum class Outcome { Nothing, NoAnswer, Offered };
    enum class Ending { GoesOn, Replaced };

    Outcome check();
    Ending offerProgram(const ProgramOffer& offer);
    [[nodiscard]] bool sureAbout(const ProgramOffer& offer);
    Ending showPage(const ProgramOffer& offer);
    Ending download(const ProgramOffer& offer);
    [[nodiscard]] std::string questionFor(const ProgramOffer& offer) const;
    bool offerPacks(MakersAnswers& answers);
    void fetchPack(const PackOffer& offer, const std::string& file);
    void cancelled();
    void tell(const std::string& text, platform::BoxStyle style, const std::string& title);
    [[nodiscard]] bool ask(const std::string& question, const std::string& title);

    Needs needs_;
    Machine machine_;
    Version running_;
    LanguagePack pack_;
    bool checking_ = false;
};

} // namespace brovin::update
