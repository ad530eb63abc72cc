#include "desktop/character/character_language.h"

#include <QLocale>

#include <algorithm>
#include <array>

namespace brovin::desktop {
namespace {

using character::LanguageId;

constexpr LanguageId kPrimary = 0x3FF;
constexpr LanguageId kEnglish = 0x0409;

struct Language {
    LanguageId id;
    QLocale::Language language;
    QLocale::Country country; ///< AnyTerritory: where no other row fits
    const char16_t* hide;
};

constexpr std::array kLanguages = {
    Language{0x0409, QLocale::English, QLocale::AnyTerritory, u"&Hide"},
    Language{0x0809, QLocale::English, QLocale::UnitedKingdom, u"&Hide"},
    Language{0x0401, QLocale::Arabic, QLocale::AnyTerritory, u"إخفاء"},
    Language{0x0804, QLocale::Chinese, QLocale::AnyTerritory, u"隐藏(&H)"},
    Language{0x0404, QLocale::Chinese, QLocale::Taiwan, u"隱藏(&H)"},
    Language{0x041A, QLocale::Croatian, QLocale::AnyTerritory, u"&Sakrij"},
    Language{0x0405, QLocale::Czech, QLocale::AnyTerritory, u"&Skrýt"},
    Language{0x0406, QLocale::Danish, QLocale::AnyTerritory, u"&Skjul"},
    Language{0x0413, QLocale::Dutch, QLocale::AnyTerritory, u"&Verbergen"},
    Language{0x042D, QLocale::Basque, QLocale::AnyTerritory, u"&Ezkutatu"},
    Language{0x040B, QLocale::Finnish, QLocale::AnyTerritory, u"&Piilota"},
    Language{0x040C, QLocale::French, QLocale::AnyTerritory, u"&Masquer"},
    Language{0x0407, QLocale::German, QLocale::AnyTerritory, u"&Ausblenden"},
    Language{0x0408, QLocale::Greek, QLocale::AnyTerritory, u"Από&κρυψη"},
    Language{0x040D, QLocale::Hebrew, QLocale::AnyTerritory, u"הסתר"},
    Language{0x040E, QLocale::Hungarian, QLocale::AnyTerritory, u"&Elrejtés"},
    Language{0x0410, QLocale::Italian, QLocale::AnyTerritory, u"&Nascondi"},
    Language{0x0411, QLocale::Japanese, QLocale::AnyTerritory, u"隠す(&H)"},
    Language{0x0412, QLocale::Korean, QLocale::AnyTerritory, u"숨기기(&H)"},
    Language{0x0414, QLocale::NorwegianBokmal, QLocale::AnyTerritory, u"&Skjul"},
    Language{0x0415, QLocale::Polish, QLocale::AnyTerritory, u"&Ukryj"},
    Language{0x0816, QLocale::Portuguese, QLocale::Portugal, u"&Ocultar"},
    Language{0x0416, QLocale::Portuguese, QLocale::AnyTerritory, u"&Ocultar"},
    Language{0x0418, QLocale::Romanian, QLocale::AnyTerritory, u"&Ascunde"},
    Language{0x0419, QLocale::Russian, QLocale::AnyTerritory, u"С&крыть"},
    Language{0x041B, QLocale::Slovak, QLocale::AnyTerritory, u"&Skryť"},
    Language{0x0424, QLocale::Slovenian, QLocale::AnyTerritory, u"&Skrij"},
    Language{0x0C0A, QLocale::Spanish, QLocale::AnyTerritory, u"&Ocultar"},
    Language{0x041D, QLocale::Swedish, QLocale::AnyTerritory, u"&Dölj"},
    Language{0x041E, QLocale::Thai, QLocale::AnyTerritory, u"ซ่อน(&H)"},
    Language{0x041F, QLocale::Turkish, QLocale::AnyTerritory, u"&Gizle"},
};

template <class Fits>
const Language* find(Fits fits) {
    const auto* const found = std::find_if(kLanguages.begin(), kLanguages.end(), fits);
    return found == kLanguages.end() ? nullptr : found;
}

const Language* rowOf(LanguageId id) {
    const Language* const exact = find([id](const Language& row) { return row.id == id; });
    return exact != nullptr
               ? exact
               : find([id](const Language& row) { return (row.id & kPrimary) == (id & kPrimary); });
}

} // namespace

LanguageId usersLanguage() {
    const QLocale user = QLocale::system();
    const auto speaks = [&user](const Language& row) { return row.language == user.language(); };
    const Language* row = find([&](const Language& l) { return speaks(l) && l.country == user.territory(); });
    if (row == nullptr)
        row = find([&](const Language& l) { return speaks(l) && l.country == QLocale::AnyTerritory; });
    return row == nullptr ? kEnglish : row->id;
}

QString hideCaption(LanguageId language) {
    const Language* const row = rowOf(language);
    return QString::fromUtf16(row == nullptr ? u"&Hide" : row->hide);
}

Qt::LayoutDirection writingDirection(LanguageId language) {
    const Language* const row = rowOf(language);
    return row == nullptr ? Qt::LeftToRight : QLocale(row->language).textDirection();
}

} // namespace brovin::desktop
