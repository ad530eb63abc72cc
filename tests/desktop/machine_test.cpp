#include "desktop/autostart_registry.h"
#include "desktop/lock_file_instance.h"
#include "desktop/qt_regional.h"
#include "text/date_text.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace brovin::desktop {
namespace {

TEST(QtRegional, followsTheUsersLanguage) {
    const auto when = *text::dateOf("2026-11-05T15:04:09");
    const QtRegional us(QLocale("en_US"));
    const QtRegional german(QLocale("de_DE"));
    EXPECT_EQ("Thursday, November 5, 2026", us.longDate(when));
    EXPECT_EQ("Donnerstag, 5. November 2026", german.longDate(when));
    EXPECT_EQ("05.11.26", german.shortDate(when));
    EXPECT_EQ("3:04:09 PM", us.longTime(when)) << "no time zone";
    EXPECT_EQ("15:04:09", german.longTime(when)) << "no time zone";
    EXPECT_EQ("15:04", german.shortTime(when));
    EXPECT_EQ("1,234,567", us.grouped(1234567));
    EXPECT_EQ("1.234.567", german.grouped(1234567));
    EXPECT_EQ("M\u00e4rz", german.monthName(3));
    EXPECT_EQ("Sun", us.shortDayName(0));
    EXPECT_EQ("Sat", us.shortDayName(6));
    EXPECT_EQ("AM", us.amPm(11));
    EXPECT_EQ("PM", us.amPm(12));
}

TEST(AutostartRegistry, writesAnEntryThatDesktopsAccept) {
    const QTemporaryDir scratch;
    AutostartRegistry registry(scratch.filePath("autostart"));
    EXPECT_EQ(std::nullopt, registry.read("Run", "Brovin"));
    EXPECT_FALSE(registry.remove("Run", "Brovin"));

    EXPECT_TRUE(registry.write("Run", "Brovin", R"(/opt/my "tools"/100% $HOME/a\b)"));
    EXPECT_NE(std::nullopt, registry.read("Run", "Brovin"));
    QFile entry(scratch.filePath("autostart/brovin.desktop"));
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    const QByteArray content = entry.readAll();
    EXPECT_TRUE(content.startsWith("[Desktop Entry]\nType=Application\nName=Brovin\n"));
    EXPECT_TRUE(content.contains(R"(Exec="/opt/my \\"tools\\"/100%% \\$HOME/a\\\\b")"))
        << content.toStdString();

    EXPECT_TRUE(registry.remove("Run", "Brovin"));
    EXPECT_EQ(std::nullopt, registry.read("Run", "Brovin"));
}

TEST(LockFileInstance, letsOneCopyThrough) {
    const QTemporaryDir scratch;
    const QString path = scratch.filePath("running.lock");
    LockFileInstance first(path);
    EXPECT_TRUE(first.isFirst());
    {
        LockFileInstance second(path);
        EXPECT_FALSE(second.isFirst());
    }
    EXPECT_TRUE(QFile::exists(path)) << "the second one took nothing away";
}

TEST(LockFileInstance, takesOverTheLockOfAKilledCopy) {
    const QTemporaryDir scratch;
    const QString path = scratch.filePath("running.lock");
    const pid_t killed = fork();
    if (killed == 0) {
        LockFileInstance first(path);
        _exit(first.isFirst() ? 0 : 1); // without tidying up
    }
    int status = -1;
    ASSERT_EQ(killed, waitpid(killed, &status, 0));
    ASSERT_EQ(0, status);
    ASSERT_TRUE(QFile::exists(path));
    LockFileInstance next(path);
    EXPECT_TRUE(next.isFirst());
}

} // namespace
} // namespace brovin::desktop
