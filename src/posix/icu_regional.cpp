#include "posix/icu_regional.h"

#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <utility>

namespace brovin::posix {
namespace {

using icu::DateFormat;
using icu::UnicodeString;

std::string localeName(const char* category) {
    for (const char* variable : {"LC_ALL", category, "LANG"}) {
        const char* const value = std::getenv(variable);
        if (value != nullptr && value[0] != '\0')
            return value;
    }
    return "C";
}

/// A name without its encoding and its modifier: "de_DE.UTF-8@euro" is "de_DE".
std::string plainName(const std::string& name) {
    return name.substr(0, name.find_first_of(".@"));
}

bool isC(const std::string& name) {
    const std::string plain = plainName(name);
    return plain.empty() || plain == "C" || plain == "POSIX";
}

/// The one modifier that tells how a language is written becomes the script, as ICU knows it.
icu::Locale localeOf(const std::string& name) {
    if (isC(name))
        return icu::Locale("en_US_POSIX");
    std::string plain = plainName(name);
    for (const auto& [modifier, script] : {std::pair{"@latin", "_Latn"}, std::pair{"@cyrillic", "_Cyrl"}})
        if (name.ends_with(modifier))
            plain.insert(std::min(plain.find('_'), plain.size()), script);
    return icu::Locale(plain.c_str());
}

std::string bytesOf(const UnicodeString& text) {
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

/// Moments are told as the user reads them, so the format must not move them to another zone.
std::unique_ptr<DateFormat> onTheUsersClock(DateFormat* format) {
    if (format != nullptr)
        format->adoptTimeZone(icu::TimeZone::getGMT()->clone());
    return std::unique_ptr<DateFormat>(format);
}

std::unique_ptr<DateFormat> withPattern(const UnicodeString& pattern, const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    return onTheUsersClock(new icu::SimpleDateFormat(pattern, locale, status));
}

/// The short time; where it has seconds, the locale's hours and minutes.
std::unique_ptr<DateFormat> hoursAndMinutes(const icu::Locale& locale) {
    auto format = onTheUsersClock(DateFormat::createTimeInstance(DateFormat::kShort, locale));
    UnicodeString pattern;
    if (const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get()))
        simple->toPattern(pattern);
    if (pattern.indexOf(u's') < 0)
        return format;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_SUCCESS(status))
        pattern = generator->getBestPattern(u"jm", status);
    return U_SUCCESS(status) ? withPattern(pattern, locale) : std::move(format);
}

enum Kind : std::size_t { LongDate, ShortDate, LongTime, ShortTime, Kinds };

std::unique_ptr<DateFormat> make(Kind kind, const icu::Locale& locale) {
    switch (kind) {
    case LongDate:
        return onTheUsersClock(DateFormat::createDateInstance(DateFormat::kFull, locale));
    case ShortDate:
        return onTheUsersClock(DateFormat::createDateInstance(DateFormat::kShort, locale));
    case LongTime: // without the time zone, which says nothing on the user's own clock
        return onTheUsersClock(DateFormat::createTimeInstance(DateFormat::kMedium, locale));
    default:
        return hoursAndMinutes(locale);
    }
}

/// The formats of the locale "C", which ICU has no words for.
constexpr std::array<const char16_t*, Kinds> kPlainPatterns{u"EEEE, d MMMM yyyy", u"d MMM yyyy", u"HH:mm:ss",
                                                            u"HH:mm"};

} // namespace

LocaleNames localeNames() {
    return {localeName("LC_TIME"), localeName("LC_NUMERIC"), localeName("LC_MESSAGES")};
}

/// The locales, and what is made of them when it is first asked for.
struct IcuRegional::Formats {
    explicit Formats(const LocaleNames& names)
        : dates(localeOf(names.dates)), messages(localeOf(names.messages)), plainDates(isC(names.dates)),
          grouping(icu::number::NumberFormatter::withLocale(localeOf(names.numbers))) {}

    [[nodiscard]] std::string text(Kind kind, platform::DateTime when);
    /// One of the names that dates are made of; empty: there is none of this number.
    [[nodiscard]] std::string name(const UnicodeString* (icu::DateFormatSymbols::*names)(std::int32_t&) const,
                                   unsigned number);

    icu::Locale dates;
    icu::Locale messages;
    bool plainDates; ///< of the locale "C"
    std::array<std::unique_ptr<DateFormat>, Kinds> made;
    std::unique_ptr<icu::DateFormatSymbols> symbols;
    icu::number::LocalizedNumberFormatter grouping;
};

std::string IcuRegional::Formats::text(Kind kind, platform::DateTime when) {
    std::unique_ptr<DateFormat>& format = made[kind];
    if (!format)
        format = plainDates ? withPattern(kPlainPatterns[kind], dates) : make(kind, dates);
    UnicodeString written;
    if (format)
        format->format(static_cast<UDate>(when.time_since_epoch().count()) * U_MILLIS_PER_SECOND, written);
    // Before the half of the day an ordinary blank does: it can be typed and searched for.
    return bytesOf(written.findAndReplace(u"\u202F", u" "));
}

std::string IcuRegional::Formats::name(const UnicodeString* (icu::DateFormatSymbols::*names)(std::int32_t&)
                                           const,
                                       unsigned number) {
    UErrorCode status = U_ZERO_ERROR;
    if (!symbols)
        symbols = std::make_unique<icu::DateFormatSymbols>(dates, status);
    std::int32_t count = 0;
    const UnicodeString* const all = (symbols.get()->*names)(count);
    return number < static_cast<unsigned>(count) ? bytesOf(all[number]) : std::string();
}

IcuRegional::IcuRegional(const LocaleNames& names) : formats_(std::make_unique<Formats>(names)) {}
IcuRegional::~IcuRegional() = default;

std::string IcuRegional::longDate(platform::DateTime when) const {
    return formats_->text(LongDate, when);
}
std::string IcuRegional::shortDate(platform::DateTime when) const {
    return formats_->text(ShortDate, when);
}
std::string IcuRegional::longTime(platform::DateTime when) const {
    return formats_->text(LongTime, when);
}
std::string IcuRegional::shortTime(platform::DateTime when) const {
    return formats_->text(ShortTime, when);
}

std::string IcuRegional::monthName(unsigned month) const {
    return formats_->name(&icu::DateFormatSymbols::getMonths, month - 1);
}
std::string IcuRegional::shortDayName(unsigned weekday) const {
    return formats_->name(&icu::DateFormatSymbols::getShortWeekdays, weekday + 1); // the first is empty
}
std::string IcuRegional::amPm(unsigned hour) const {
    return formats_->name(&icu::DateFormatSymbols::getAmPmStrings, hour < 12 ? 0 : 1);
}

std::string IcuRegional::grouped(std::int64_t number) const {
    UErrorCode status = U_ZERO_ERROR;
    const UnicodeString written = formats_->grouping.formatInt(number, status).toString(status);
    return U_SUCCESS(status) ? bytesOf(written) : std::to_string(number);
}

long IcuRegional::languageId() const {
    return static_cast<long>(formats_->messages.getLCID());
}

} // namespace brovin::posix
