#pragma once

#include "language/language_catalogue.h"
#include "language/message_table.h"
#include "platform/internet_transfer.h"
#include "platform/makers_key.h"
#include "platform/program_folder.h"
#include "ui/pages/program_page.h"
#include "update/answers.h"
#include "update/proof.h"

#include <string>
#include <string_view>

namespace brovin::update {

/// Whether a text serves as a language file: the catalogue would list it, and it fills both drop-down lists.
[[nodiscard]] bool isLanguagePack(std::string_view text);

/// How a pack fared.
struct PackOutcome {
    bool installed = false;
    std::string reason; ///< why not, as a sentence; empty: what came is no pack
};

/// Puts language packs from the server in the place of installed language files.
class LanguagePack {
public:
    struct Needs {
        ui::ProgramPage& programPage;
        const language::MessageTable& messages;
        language::LanguageCatalogue& catalogue;
        platform::ProgramFolder& folder;
        platform::InternetTransfer& transfer;
        const platform::MakersKey& key;
    };
    explicit LanguagePack(const Needs& needs) : needs_(needs) {}

    /// Fetches the pack and writes it over the user's copy of `file`. Anything that is wrong leaves the old
    /// one.
    PackOutcome fetch(const PackOffer& offer, const std::string& file);

private:
    [[nodiscard]] std::string whyNotTrusted(const Offered& offered, const std::string& url,
                                            std::string_view pack) const;
    [[nodiscard]] std::string told(language::Text what, const platform::Failure& why) const;
    void refresh(const std::string& file);

    Needs needs_;
};

} // namespace brovin::update
