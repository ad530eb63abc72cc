#include "language/language_keys.h"

#include "language/alt_letters.h"
#include "language/language_tables.h"
#include "language/texts.h"

#include <algorithm>

namespace brovin::language {
namespace {

/// How many values a message is given, where it is given any.
constexpr struct {
    Message message;
    int values;
} kValues[] = {
    {Message::AskNastyName, 1},
    {Message::NastyNameTooLong, 1},
    {Message::ConfirmExit, 1},
    {Message::SeveralDeleted, 2},
    {Message::OneDeleted, 1},
    {Message::NothingDeleted, 1},
    {Message::ConfirmRemoveName, 1},
    {Message::ConfirmRemoveFolder, 1},
    {Message::LastScanned, 1},
    {Message::NextScan, 1},
    {Message::ConfirmResetCounter, 2},
    {Message::NothingNewer, 1},
    {Message::VersionOffered, 1},
    {Message::OfferedVersion, 3},
    {Message::AlreadyRunning, 1},
    {Message::AlreadyRunningTitle, 1},
    {Message::SayLabel, 1},
    {Message::DoLabel, 1},
    {Message::WordOfTheDay, 2},
    {Message::LogScanBegun, 2},
    {Message::LogScanSum, 2},
    {Message::LogScanFinished, 2},
    {Message::ScanningFolder, 1},
    {Message::ConfirmDelete, 2},
    {Message::LogFileDeleted, 1},
    {Message::LogFolderDeleted, 2},
    {Message::DeletionFailed, 1},
    {Message::DownloadNotStarted, 2},
    {Message::DownloadProgress, 2},
};

constexpr std::int32_t kLastMessage = numberOf(Message::DownloadUntrusted);

Places placesOfValues(Message message) {
    Places places;
    for (const auto& row : kValues)
        for (int value = 1; row.message == message && value <= row.values; ++value)
            places.set(static_cast<std::size_t>(value));
    return places;
}

std::vector<LanguageKey> allKeys() {
    std::vector<LanguageKey> keys;
    for (const char* const key : {"language", "languageDesc", "langversion", "languageid", "modeid"})
        keys.push_back({key, {}, {}});
    for (const auto& row : kCommaLists)
        keys.push_back({std::string(row.key), {}, {}});
    for (const std::string_view key : kPhraseListKeys)
        keys.push_back({std::string(key), {}, {}});
    for (std::int32_t number = 0; number <= kLastMessage; ++number)
        keys.push_back({keyOf(Message{number}), Message{number}, placesOfValues(Message{number})});
    for (const TextRow& row : kTextRows)
        keys.push_back({"text." + std::string(row.name), {}, placesOf(row.english)});
    for (const std::string& name : captionedControls())
        keys.push_back({"lbl" + name, {}, {}});
    std::ranges::sort(keys, {}, &LanguageKey::key);
    return keys;
}

} // namespace

Places placesOf(std::string_view text) {
    Places found;
    for (std::size_t at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1))
        if (at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9')
            found.set(static_cast<std::size_t>(text[at + 1] - '0'));
    return found;
}

const std::vector<LanguageKey>& languageKeys() {
    static const std::vector<LanguageKey> keys = allKeys();
    return keys;
}

} // namespace brovin::language
