#include "desktop/qt_settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brovin::desktop {
namespace {

struct Disk {
    QTemporaryDir scratch;
    QString path = scratch.filePath("Brovin/Brovin.conf");

    void put(const QByteArray& content) const {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
};

bool store(QtSettingsStore& settings, const char* section, const char* key, const std::string& value) {
    const platform::SettingsEntry entry{key, value};
    return settings.write(section, {&entry, 1});
}

TEST(QtSettingsStore, keepsEveryTextOverARestart) {
    const std::string kTexts[] = {"plain",    "a, b; c", "C:\\temp",    "\"quoted\"",    "two\nlines",
                                  " blanks ", "",        "Z\u00fcrich", "@Invalid",      "100%",
                                  "[x]=y",    "a\\x41",  "#remark",     "\U0001F600 ok", ";"};
    const Disk disk;
    {
        QtSettingsStore settings(disk.path);
        int number = 0;
        for (const std::string& text : kTexts)
            EXPECT_TRUE(store(settings, "filelist.txt", ("Entry" + std::to_string(++number)).c_str(), text));
    }
    QtSettingsStore settings(disk.path);
    int number = 0;
    for (const std::string& text : kTexts)
        EXPECT_EQ(text, settings.read("filelist.txt", "Entry" + std::to_string(++number)));
    EXPECT_EQ(std::nullopt, settings.read("filelist.txt", "Entry99"));
}

TEST(QtSettingsStore, readsWhatWasWrittenByHand) {
    const Disk disk;
    disk.put("[Settings]\nReminder=Bed, now\nInterval=7\r\nUser=J\xC3\xB6rg\n\n[filelist.txt]\nNumber=1\n");
    QtSettingsStore settings(disk.path);
    EXPECT_EQ("Bed, now", settings.read("Settings", "Reminder")) << "a comma makes no list";
    EXPECT_EQ("7", settings.read("Settings", "Interval"));
    EXPECT_EQ("J\u00f6rg", settings.read("Settings", "User"));
    EXPECT_EQ("1", settings.read("filelist.txt", "Number"));
    EXPECT_EQ("", settings.damagedCopy().toStdString());
}

TEST(QtSettingsStore, keepsACopyOfWhatItCannotRead) {
    const Disk disk;
    const QByteArray damaged = "[Settings]\nForce=0\nConf";
    disk.put(damaged);
    QtSettingsStore settings(disk.path);
    EXPECT_EQ("0", settings.read("Settings", "Force")) << "what can be read is used";
    ASSERT_FALSE(settings.damagedCopy().isEmpty());
    EXPECT_TRUE(store(settings, "Settings", "Force", "1"));
    QFile copy(settings.damagedCopy());
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_EQ(damaged, copy.readAll());
}

TEST(QtSettingsStore, saysThatItCannotWrite) {
    const Disk disk;
    disk.put("[Settings]\nForce=0\n");
    ASSERT_TRUE(QFile::remove(disk.path));
    ASSERT_TRUE(QDir().mkpath(disk.path)); // a folder stands where the file should be, for root too
    QtSettingsStore settings(disk.path);
    EXPECT_FALSE(store(settings, "Settings", "Force", "1"));
}

TEST(QtSettingsStore, seesWhatAnotherCopyHasStored) {
    const Disk disk;
    QtSettingsStore window(disk.path);
    EXPECT_TRUE(store(window, "Settings", "KB", "4"));
    {
        QtSettingsStore console(disk.path);
        EXPECT_TRUE(store(console, "Settings", "TotalNuked", "9"));
    }
    EXPECT_EQ("9", window.read("Settings", "TotalNuked"));
    EXPECT_TRUE(store(window, "Settings", "KB", "8"));
    QtSettingsStore later(disk.path);
    EXPECT_EQ("9", later.read("Settings", "TotalNuked")) << "not overwritten";
}

} // namespace
} // namespace brovin::desktop
