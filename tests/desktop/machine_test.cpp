#include "desktop/machine/autostart_entry.h"
#include "desktop/machine/lock_file_instance.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace brovin::desktop {
namespace {

TEST(AutostartEntry, isOneThatDesktopsAccept) {
    const QTemporaryDir scratch;
    const QString path = scratch.filePath("autostart/brovin.desktop");
    AutostartEntry logOn(path);
    EXPECT_FALSE(logOn.present());
    EXPECT_FALSE(logOn.remove());

    EXPECT_TRUE(logOn.add(R"(/opt/my "tools"/100% $HOME/a\b)"
                          "\nHidden=true"));
    EXPECT_TRUE(logOn.present());
    QFile entry(path);
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    const QByteArray content = entry.readAll();
    EXPECT_TRUE(content.startsWith("[Desktop Entry]\nType=Application\nName=Brovin\n"));
    EXPECT_TRUE(content.contains(R"(Exec="/opt/my \\"tools\\"/100%% \\$HOME/a\\\\b\nHidden=true")"))
        << content.toStdString();
    EXPECT_TRUE(content.contains("TryExec=/opt/my \"tools\"/100% $HOME/a\\\\b\\nHidden=true\n"))
        << content.toStdString();

    entry.close();
    ASSERT_TRUE(entry.open(QIODevice::Append));
    entry.write("Hidden=true\n[Desktop Action other]\nExec=other\n");
    entry.close();
    EXPECT_FALSE(logOn.present()) << "switched off by the desktop";
    ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
    entry.write("[Desktop Entry]\nExec=\n");
    entry.close();
    EXPECT_FALSE(logOn.present()) << "starts nothing";

    EXPECT_TRUE(logOn.remove());
    EXPECT_FALSE(logOn.present());
}

TEST(LockFileInstance, letsOneCopyThrough) {
    const QTemporaryDir scratch;
    const std::string path = scratch.filePath("running.lock").toStdString();
    LockFileInstance first(path);
    EXPECT_TRUE(first.isFirst());
    {
        LockFileInstance second(path);
        EXPECT_FALSE(second.isFirst());
    }
    EXPECT_TRUE(QFile::exists(path.c_str())) << "the second one took nothing away";
}

TEST(LockFileInstance, servesWhatALaterCopyAsksFor) {
    int none = 0;
    const QCoreApplication application(none, nullptr);
    const QTemporaryDir scratch;
    const std::string path = scratch.filePath("running.lock").toStdString();
    LockFileInstance first(path);
    std::vector<platform::Errand> served;
    first.serve = [&](platform::Errand errand) { served.push_back(errand); };
    const std::vector errands{platform::Errand::SwitchQuiet, platform::Errand::ScanNow};
    std::atomic<int> answers = 0;
    std::thread later([&] {
        for (const platform::Errand errand : errands)
            answers += LockFileInstance(path).sendToFirst(errand) ? 1 : 0;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(100)); // two were started nearly at once
    EXPECT_TRUE(first.isFirst());
    for (const QDeadlineTimer end(10000); answers < 2 && !end.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    later.join();
    EXPECT_EQ(2, answers);
    EXPECT_EQ(errands, served);
}

TEST(LockFileInstance, takesOverTheLockOfAKilledCopy) {
    const QTemporaryDir scratch;
    const std::string path = scratch.filePath("running.lock").toStdString();
    const pid_t killed = fork();
    if (killed == 0) {
        LockFileInstance first(path);
        _exit(first.isFirst() ? 0 : 1); // without tidying up
    }
    int status = -1;
    ASSERT_EQ(killed, waitpid(killed, &status, 0));
    ASSERT_EQ(0, status);
    ASSERT_TRUE(QFile::exists(path.c_str()));
    LockFileInstance next(path);
    EXPECT_TRUE(next.isFirst());
}

} // namespace
} // namespace brovin::desktop
