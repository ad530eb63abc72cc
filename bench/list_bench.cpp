// Loading and saving the longest list, in the settings store that the program uses. Prints a table.

#include "cleaner/stored_list.h"
#include "posix/ini_settings_store.h"
#include "posix/unicode_letters.h"
#include "settings/settings.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace brovin;
using cleaner::WithPaths;

template <class Work>
double seconds(Work work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

} // namespace

int main() {
    const QTemporaryDir scratch;
    const std::string path = scratch.filePath(QStringLiteral("Brovin.conf")).toStdString();
    const posix::UnicodeLetters letters;
    std::vector<cleaner::ListEntry> entries;
    for (std::size_t i = 0; i < cleaner::kMostEntries; ++i)
        entries.push_back({"/srv/share/folder number " + std::to_string(i),
                           "/srv/Share/Folder Number " + std::to_string(i)});

    double saving = 0;
    double changing = 0;
    double loading = 0;
    std::size_t loaded = 0;
    {
        posix::IniSettingsStore store(path);
        settings::Settings settings(store);
        saving = seconds([&] {
            cleaner::saveList(settings, cleaner::kWatchedFoldersSection, entries, WithPaths::Yes, letters);
        });
        entries.erase(entries.begin());
        changing = seconds([&] {
            cleaner::saveList(settings, cleaner::kWatchedFoldersSection, entries, WithPaths::Yes, letters);
        });
    }
    loading = seconds([&] {
        posix::IniSettingsStore store(path);
        const settings::Settings settings(store);
        loaded = cleaner::loadList(settings, cleaner::kWatchedFoldersSection, letters).size();
    });
    std::printf("%zu watched folders with their true spelling, %lld bytes\n\n", loaded,
                static_cast<long long>(QFileInfo(QString::fromStdString(path)).size()));
    std::printf("| step | time | of the second allowed |\n|---|---|---|\n");
    std::printf("| save for the first time | %.3f s | %.2f |\n", saving, saving);
    std::printf("| remove the first and save | %.3f s | %.2f |\n", changing, changing);
    std::printf("| load in a fresh program | %.3f s | %.2f |\n", loading, loading);
    return 0;
}
