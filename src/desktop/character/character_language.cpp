#include "desktop/character/character_language.h"

#include "text/language_ids.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <string>

namespace brovin::desktop {
namespace {

using character::LanguageId;

constexpr LanguageId kPrimary = 0x3FF;
constexpr long kLastLanguageId = 0xFFFF;
constexpr LanguageId kEnglish = 0x0409;

struct Language {
    LanguageId id;
    const char16_t* hide;
};

constexpr std::array kLanguages = {
    Language{0x0409, u"&Hide"},       Language{0x0809, u"&Hide"},     Language{0x0401, u"إخفاء"},
    Language{0x0804, u"隐藏(&H)"},    Language{0x0404, u"隱藏(&H)"},  Language{0x041A, u"&Sakrij"},
    Language{0x0405, u"&Skrýt"},      Language{0x0406, u"&Skjul"},    Language{0x0413, u"&Verbergen"},
    Language{0x042D, u"&Ezkutatu"},   Language{0x040B, u"&Piilota"},  Language{0x040C, u"&Masquer"},
    Language{0x0407, u"&Ausblenden"}, Language{0x0408, u"Από&κρυψη"}, Language{0x040D, u"הסתר"},
    Language{0x040E, u"&Elrejtés"},   Language{0x0410, u"&Nascondi"}, Language{0x0411, u"隠す(&H)"},
    Language{0x0412, u"숨기기(&H)"},  Language{0x0414, u"&Skjul"},    Language{0x0415, u"&Ukryj"},
    Language{0x0816, u"&Ocultar"},    Language{0x0416, u"&Ocultar"},  Language{0x0418, u"&Ascunde"},
    Language{0x0419, u"С&крыть"},     Language{0x041B, u"&Skryť"},    Language{0x0424, u"&Skrij"},
    Language{0x0C0A, u"&Ocultar"},    Language{0x041D, u"&Dölj"},     Language{0x041E, u"ซ่อน(&H)"},
    Language{0x041F, u"&Gizle"},
};

template <class Fits>
const Language* find(Fits fits) {
    const auto* const found = std::find_if(kLanguages.begin(), kLanguages.end(), fits);
    return found == kLanguages.end() ? nullptr : found;
}

bool knows(LanguageId id) {
    return find([id](const Language& row) { return row.id == id; }) != nullptr;
}

const Language* rowOf(LanguageId id) {
    const LanguageId bits = knows(id) ? LanguageId{0xFFFF} : kPrimary;
    return find([id, bits](const Language& row) { return (row.id & bits) == (id & bits); });
}

} // namespace

bool namesLanguage(long id) {
    return id > 0 && id <= kLastLanguageId && (id & kPrimary) != 0;
}

LanguageId usersLanguage() {
    const QString name = QLocale::system().name(); // "pt_BR"
    const std::string language = name.section(QLatin1Char('_'), 0, 0).toStdString();
    const std::string country = name.section(QLatin1Char('_'), 1, 1).toStdString();
    for (const std::string& tag : {std::string(language).append("-").append(country), language})
        if (const auto id = text::languageId(tag); id && knows(*id))
            return *id;
    return kEnglish;
}

QString hideCaption(LanguageId language) {
    const Language* const row = rowOf(language);
    return QString::fromUtf16(row == nullptr ? u"&Hide" : row->hide);
}

Qt::LayoutDirection writingDirection(LanguageId language) {
    const Language* const row = rowOf(language);
    return row == nullptr
               ? Qt::LeftToRight
               : QLocale(QString::fromStdString(text::languageTag(row->id).value_or(""))).textDirection();
}

} // namespace brovin::desktop
