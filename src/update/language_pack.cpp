#include "update/language_pack.h"

#include "language/language_file.h"
#include "update/address.h"

namespace brovin::update {
namespace {

using platform::PlainHttp;

/// What moves on the page while a pack is on its way.
class Moving {
public:
    Moving(ui::Animation& animation, const std::string& file) : animation_(animation) {
        animation_.open(file);
        animation_.setVisible(true);
        animation_.setPlaying(true);
    }
    ~Moving() {
        animation_.setPlaying(false);
        animation_.setVisible(false);
    }
    Moving(const Moving&) = delete;
    Moving& operator=(const Moving&) = delete;

private:
    ui::Animation& animation_;
};

} // namespace

bool isLanguagePack(std::string_view text) {
    if (text.find("language=") == std::string_view::npos || !language::languageInfo(text))
        return false;
    bool dudes = false;
    bool periods = false;
    for (const std::string& line : language::linesOf(text)) {
        const auto keyed = language::keyedLine(line);
        if (!keyed || keyed->value.empty())
            continue;
        dudes = dudes || keyed->key == "envDudeOptions";
        periods = periods || keyed->key == "envCheckOptions";
    }
    return dudes && periods;
}

PackOutcome LanguagePack::fetch(const PackOffer& offer, const std::string& file) {
    // The maker's signature proves a pack whatever way it came; without a key the way must be safe.
    const std::string url = needs_.key.present() ? offer.url : byHttps(offer.url);
    const Moving moving(needs_.programPage.picAnim, needs_.folder.path("DOWNLOAD.AVI"));
    const PlainHttp plain = needs_.key.present() ? PlainHttp::Anywhere : PlainHttp::OnlyFromThisMachine;
    const auto pack = needs_.transfer.openUrl({url, plain}, language::kLargestFile);
    if (!pack)
        return {false, told("didNotCome", pack.failure())};
    if (!isLanguagePack(*pack))
        return {};
    if (std::string reason = whyNotTrusted({Kind::Pack, file, offer.version, {}}, url, *pack);
        !reason.empty())
        return {false, std::move(reason)};
    if (const platform::Status written = needs_.folder.replace(file, *pack); !written)
        return {false, told("diskRefused", written.failure())};
    refresh(file);
    return {true, {}};
}

/// Empty: it is trusted.
std::string LanguagePack::whyNotTrusted(const Offered& offered, const std::string& url,
                                        std::string_view pack) const {
    if (!needs_.key.present())
        return {};
    const auto statement =
        needs_.transfer.openUrl({statementUrl(url), PlainHttp::Anywhere}, kLongestStatement);
    if (!statement)
        return needs_.messages.getText("signatureMissing");
    auto reason = whyNotOffered(*statement, offered, needs_.key);
    if (!reason)
        reason = whyNotReceived(*statementOf(*statement), {pack.size(), needs_.key.sha512(pack)});
    return reason ? needs_.messages.getText(*reason) : std::string();
}

std::string LanguagePack::told(language::Text what, const platform::Failure& why) const {
    return needs_.messages.getText(what, {needs_.messages.reason(why)});
}

/// Lists the languages anew. The choice stays; a chosen language that has changed is loaded again.
void LanguagePack::refresh(const std::string& file) {
    const auto active = needs_.catalogue.selectedFile();
    needs_.catalogue.buildLanguageCatalogue();
    const auto entry = active ? needs_.catalogue.entryOf(*active) : std::nullopt;
    if (!entry)
        return;
    if (active == file)
        needs_.programPage.lstLang.select(*entry);
    else
        needs_.programPage.lstLang.place(*entry);
}

} // namespace brovin::update
