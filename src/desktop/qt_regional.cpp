#include "desktop/qt_regional.h"

#include "posix/unicode_case.h"

#include <QDate>
#include <QRegularExpression>
#include <QTime>

#include <chrono>

namespace brovin::desktop {
namespace {

QDate dateOf(platform::DateTime when) {
    const std::chrono::year_month_day day(std::chrono::floor<std::chrono::days>(when));
    return {static_cast<int>(day.year()), static_cast<int>(static_cast<unsigned>(day.month())),
            static_cast<int>(static_cast<unsigned>(day.day()))};
}

QTime timeOf(platform::DateTime when) {
    const auto sinceMidnight = when - std::chrono::floor<std::chrono::days>(when);
    return QTime::fromMSecsSinceStartOfDay(static_cast<int>(sinceMidnight.count()) * 1000);
}

} // namespace

std::string QtRegional::longDate(platform::DateTime when) const {
    return locale_.toString(dateOf(when), QLocale::LongFormat).toStdString();
}

std::string QtRegional::shortDate(platform::DateTime when) const {
    return locale_.toString(dateOf(when), QLocale::ShortFormat).toStdString();
}

std::string QtRegional::longTime(platform::DateTime when) const {
    // The long format ends with the time zone, which says nothing on the user's own clock.
    static const QRegularExpression zone(QStringLiteral("\\s*[(\\[]?t+[)\\]]?\\s*"));
    QString format = locale_.timeFormat(QLocale::LongFormat);
    return locale_.toString(timeOf(when), format.remove(zone)).toStdString();
}

std::string QtRegional::shortTime(platform::DateTime when) const {
    return locale_.toString(timeOf(when), QLocale::ShortFormat).toStdString();
}

std::string QtRegional::monthName(unsigned month) const {
    return locale_.monthName(static_cast<int>(month), QLocale::LongFormat).toStdString();
}

std::string QtRegional::shortDayName(unsigned weekday) const {
    const int isoDay = weekday == 0 ? 7 : static_cast<int>(weekday);
    return locale_.dayName(isoDay, QLocale::ShortFormat).toStdString();
}

std::string QtRegional::amPm(unsigned hour) const {
    return (hour < 12 ? locale_.amText() : locale_.pmText()).toStdString();
}

std::string QtRegional::grouped(std::int64_t number) const {
    return locale_.toString(static_cast<qlonglong>(number)).toStdString();
}

std::string QtRegional::lowerCase(std::string_view text) const {
    return posix::lowerCase(text);
}

std::string QtRegional::properCase(std::string_view text) const {
    return posix::properCase(text);
}

} // namespace brovin::desktop
