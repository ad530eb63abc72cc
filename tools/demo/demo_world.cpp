#include "demo_world.h"

#include "posix/ini_settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <iostream>
#include <string>
#include <vector>

namespace brovin::tools {
namespace {

struct Clutter {
    const char* path;
    int bytes;
};
/// What the file managers of other systems leave on a shared disk, and what has to stay.
constexpr Clutter kShare[] = {
    {"Holiday/beach.jpg", 48000},    {"Holiday/Thumbs.db", 23000}, {"Holiday/._beach.jpg", 4096},
    {"Holiday/.DS_Store", 6148},     {"Holiday/Icon\r", 0},        {"Music/song.ogg", 90000},
    {"Music/desktop.ini", 282},      {"Music/.DS_Store", 6148},    {"Music/__MACOSX/._song", 4096},
    {"Letters/to grandma.txt", 900}, {"Letters/~lock", 80},        {"Letters/.Trashes/old.txt", 12000},
};
constexpr const char* kNasty[] = {"thumbs.db", ".ds_store", "desktop.ini", "__macosx", ".trashes"};

void makeShare(const QString& share) {
    for (const Clutter& entry : kShare) {
        const QString path = share + QLatin1Char('/') + QString::fromUtf8(entry.path);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(QByteArray(entry.bytes, 'x'));
    }
}

void storeLists(const posix::Places& places, const QString& share) {
    posix::IniSettingsStore settings(places.settingsFile);
    std::vector<platform::SettingsEntry> names{{"Number", std::to_string(std::size(kNasty))}};
    for (std::size_t i = 0; i < std::size(kNasty); ++i)
        names.push_back({"Entry" + std::to_string(i + 1), kNasty[i]});
    const platform::SettingsEntry folders[] = {
        {"Number", "1"}, {"Entry1", share.toLower().toStdString()}, {"Path1", share.toStdString()}};
    if (!settings.write("filelist.txt", names) || !settings.write("foldlist.txt", folders))
        std::cerr << "The demonstration's settings could not be written.\n";
}

} // namespace

posix::Places makeDemoWorld(const QString& folder) {
    const std::string root = QFile::encodeName(folder).toStdString();
    posix::Places places = posix::findPlaces({}).value_or(posix::Places());
    places.settingsFolder = root + "/config/Brovin";
    places.settingsFile = places.settingsFolder + "/Brovin.conf";
    places.autostartFolder = root + "/config/autostart";
    places.runningLock = root + "/running.lock";
    places.ownFolder = root + "/data";
    makeShare(folder + QStringLiteral("/Share"));
    storeLists(places, folder + QStringLiteral("/Share"));
    return places;
}

} // namespace brovin::tools
