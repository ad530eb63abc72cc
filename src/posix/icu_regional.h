#pragma once

#include "platform/regional.h"

#include <memory>
#include <string>

namespace brovin::posix {

/// The locales of a user, by their POSIX names, such as "de_DE.UTF-8".
struct LocaleNames {
    std::string dates;    ///< LC_TIME
    std::string numbers;  ///< LC_NUMERIC
    std::string messages; ///< LC_MESSAGES
};

/// What the environment asks for: LC_ALL, else the category's own variable, else LANG, else "C". An empty
/// variable counts as missing (POSIX, "Environment Variables").
[[nodiscard]] LocaleNames localeNames();

/// The regional formats of the user's locale, by ICU. The locales "C" and "POSIX" have formats that suit
/// every reader and every script: "5 Nov 2026", "15:04:09".
class IcuRegional final : public platform::Regional {
public:
    explicit IcuRegional(const LocaleNames& names = localeNames());
    ~IcuRegional() override;
    IcuRegional(const IcuRegional&) = delete;
    IcuRegional& operator=(const IcuRegional&) = delete;

    [[nodiscard]] std::string longDate(platform::DateTime when) const override;
    [[nodiscard]] std::string shortDate(platform::DateTime when) const override;
    [[nodiscard]] std::string longTime(platform::DateTime when) const override;
    [[nodiscard]] std::string shortTime(platform::DateTime when) const override;
    [[nodiscard]] std::string monthName(unsigned month) const override;
    [[nodiscard]] std::string shortDayName(unsigned weekday) const override;
    [[nodiscard]] std::string amPm(unsigned hour) const override;
    [[nodiscard]] std::string grouped(std::int64_t number) const override;
    [[nodiscard]] long languageId() const override;

private:
    struct Formats;
    std::unique_ptr<Formats> formats_;
};

} // namespace brovin::posix
