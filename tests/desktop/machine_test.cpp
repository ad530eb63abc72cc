#include "desktop/machine/autostart_registry.h"
#include "desktop/machine/lock_file_instance.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace brovin::desktop {
namespace {

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

    entry.close();
    ASSERT_TRUE(entry.open(QIODevice::Append));
    entry.write("Hidden=true\n[Desktop Action other]\nExec=other\n");
    entry.close();
    EXPECT_EQ(std::nullopt, registry.read("Run", "Brovin")) << "switched off by the desktop";

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
