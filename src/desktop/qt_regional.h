#pragma once

#include "platform/regional.h"

#include <QLocale>

namespace brovin::desktop {

/// The regional formats of the user's desktop.
class QtRegional final : public platform::Regional {
public:
    explicit QtRegional(const QLocale& locale = QLocale::system()) : locale_(locale) {}

    [[nodiscard]] std::string longDate(platform::DateTime when) const override;
    [[nodiscard]] std::string shortDate(platform::DateTime when) const override;
    [[nodiscard]] std::string longTime(platform::DateTime when) const override;
    [[nodiscard]] std::string shortTime(platform::DateTime when) const override;
    [[nodiscard]] std::string monthName(unsigned month) const override;
    [[nodiscard]] std::string shortDayName(unsigned weekday) const override;
    [[nodiscard]] std::string amPm(unsigned hour) const override;
    [[nodiscard]] std::string grouped(std::int64_t number) const override;
    [[nodiscard]] std::string lowerCase(std::string_view text) const override;
    [[nodiscard]] std::string properCase(std::string_view text) const override;

private:
    QLocale locale_;
};

} // namespace brovin::desktop
