#include "language/language_check.h"

#include "language/alt_letters.h"
#include "language/language_catalogue.h"
#include "language/language_file.h"
#include "language/messages.h"
#include "language/phrase_check.h"
#include "text/strings.h"
#include "text/utf8.h"
#include "ui/frm_options.h"

#include <algorithm>
#include <map>
#include <set>

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
/// Lines of the log and of the status bar.
constexpr Message kOneLine[] = {Message::LogEmptied,     Message::NeverScanned,    Message::LastScanned,
                                Message::NextScan,       Message::ScanUnderWay,    Message::LogScanBegun,
                                Message::LogScanSum,     Message::LogScanFinished, Message::LogNothingFound,
                                Message::ScanningFolder, Message::LogFileDeleted,  Message::LogFolderDeleted};

constexpr std::string_view kTextKeys = "text.";

constexpr struct {
    std::string_view key;
    std::size_t pieces;
} kCommaLists[] = {{"envButtons", ui::FrmOptions::kTabs}, {"envDudeOptions", 3}, {"envCheckOptions", 4}};

/// The names of the places "%1" to "%9" in a text.
std::set<char> places(std::string_view text) {
    std::set<char> found;
    for (std::size_t at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1))
        if (at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9')
            found.insert(text[at + 1]);
    return found;
}

/// Whether what another list follows ends with a bar: the list for all characters stands behind that of one.
bool isFollowed(PhraseList list) {
    return list >= PhraseList::SpkClickPeedy && list <= PhraseList::SpkClickGenie;
}

class Check {
public:
    explicit Check(std::string_view bytes) : bytes_(bytes) {}

    std::vector<LanguageFault> faults() {
        head();
        readLines();
        keys();
        for (std::size_t list = 0; list < kPhraseListKeys.size(); ++list)
            checkList(static_cast<PhraseList>(list));
        unusedWords();
        messages();
        for (const auto& [key, pieces] : kCommaLists)
            commaList(key, pieces);
        captions();
        std::ranges::stable_sort(faults_, {}, &LanguageFault::line);
        return std::move(faults_);
    }

private:
    struct Entry {
        std::size_t line;
        std::string value;
    };

    void fault(std::size_t line, std::string text) { faults_.push_back({line, std::move(text)}); }
    static std::string about(std::string_view key, std::string_view what) {
        std::string text;
        text.reserve(key.size() + what.size());
        return text.append(key).append(what);
    }
    /// The first entry of a key; null: there is none, or an empty one, which has been told.
    [[nodiscard]] const Entry* entryOf(std::string_view key) const {
        const auto found = entries_.find(key);
        return found == entries_.end() ? nullptr : &found->second.front();
    }

    void head() {
        if (!languageInfo(bytes_))
            fault(
                0,
                "without a line each for \"language=\", \"languageDesc=\" and \"langversion=\", a number of "
                "0 or more, it is not offered");
        if (bytes_.size() > kLargestFile)
            fault(0, "it is too large to be read");
        if (!text::isUtf8(bytes_))
            fault(0, "it is not in UTF-8, and is taken for Windows-1252");
    }

    void readLines() {
        std::size_t number = 0;
        for (const std::string& line : linesOf(bytes_)) {
            ++number;
            if (const auto keyed = keyedLine(line))
                entries_[std::string(keyed->key)].push_back({number, std::string(keyed->value)});
        }
    }

    static std::set<std::string, std::less<>> knownKeys() {
        std::set<std::string, std::less<>> known = {"language", "languageDesc", "langversion", "languageid",
                                                    "modeid"};
        for (const auto& row : kCommaLists)
            known.emplace(row.key);
        for (const std::string_view key : kPhraseListKeys)
            known.emplace(key);
        for (std::int32_t number = 0; number <= kLastMessage; ++number)
            known.insert(keyOf(Message{number}));
        for (const TextRow& row : kTextRows)
            known.insert(about(kTextKeys, row.name));
        for (const std::string& name : captionedControls())
            known.insert("lbl" + name);
        return known;
    }

    void keys() {
        static const auto known = knownKeys();
        faults_.reserve(known.size()); // of a file that is not begun yet, all are
        for (const std::string& key : known)
            if (!entries_.contains(key))
                fault(0, about(key, " is missing"));
        for (const auto& [key, found] : entries_) {
            if (!known.contains(key))
                fault(found.front().line, "nothing reads \"" + key + "\"");
            else if (found.size() > 1 && !phraseListOf(key))
                fault(found[1].line, key + " stands in line " + std::to_string(found[0].line) + " already");
            else if (key != "modeid" && key != "languageid" && text::trim(found.front().value).empty())
                fault(found.front().line, key + " is empty");
        }
        if (const Entry* id = entryOf("languageid"))
            if (id->value.find_first_not_of("0123456789") != std::string::npos)
                fault(id->line, "languageid is no number");
    }

    /// A list may take several lines, which are joined with nothing between them.
    void checkList(PhraseList list) {
        const auto found = entries_.find(kPhraseListKeys[static_cast<std::size_t>(list)]);
        if (found == entries_.end())
            return;
        std::string all;
        for (std::size_t i = 0; i < found->second.size(); ++i) {
            const auto& [line, value] = found->second[i];
            const bool last = i + 1 == found->second.size();
            const bool bar = value.ends_with('|');
            if (!last && !bar && !found->second[i + 1].value.starts_with('|'))
                fault(line, "without a bar at its end it runs into line " +
                                std::to_string(found->second[i + 1].line));
            if (last && bar != isFollowed(list))
                fault(line, bar ? "the last line of a list ends without a bar"
                                : "the last line ends with a bar too, since another list follows it");
            checkLine(list, line, value);
            all += value;
        }
        if (kindOf(list) == ListKind::Pairs)
            checkPairs(found->second.front().line, all);
    }

    void checkLine(PhraseList list, std::size_t line, std::string_view value) {
        if (value.ends_with('|'))
            value.remove_suffix(1);
        for (const std::string_view phrase : text::split(value, '|')) {
            if (text::trim(phrase).empty())
                fault(line, "nothing stands between two bars");
            else
                for (std::string& what : phraseFaults(list, phrase))
                    fault(line, std::move(what));
            if (kindOf(list) == ListKind::Phrases)
                for (const std::string_view token : tokensOf(phrase))
                    used_.emplace(token);
        }
    }

    void checkPairs(std::size_t line, std::string_view list) {
        const auto items = text::split(list, '|');
        if (items.size() % 2 != 0)
            fault(line, "pairs are needed: a character, its word, and at the end \"else\" and a word");
        else if (items.size() < 2 || items[items.size() - 2] != "else")
            fault(line, "at the end \"else\" and the word for all other characters are needed");
    }

    void unusedWords() {
        for (const std::string_view token : {"&col&", "&teeth&", "&animal&", "&name&", "&song&", "&job&",
                                             "&stupid&", "&music&", "&crown&", "&poo&"}) {
            const auto key = kPhraseListKeys[static_cast<std::size_t>(*listBehind(token))];
            const bool names = token == "&name&" && used_.contains("&namem&");
            if (const Entry* entry = entryOf(key); entry != nullptr && !names && !used_.contains(token))
                fault(entry->line, "no phrase uses " + std::string(token));
        }
    }

    void messages() {
        for (std::int32_t number = 0; number <= kLastMessage; ++number) {
            const Message message{number};
            const Entry* entry = entryOf(keyOf(message));
            if (entry == nullptr)
                continue;
            std::set<char> expected;
            for (const auto& row : kValues)
                for (int value = 1; row.message == message && value <= row.values; ++value)
                    expected.insert(static_cast<char>('0' + value));
            checkPlaces(*entry, expected);
            if (message == Message::Reminder) // the only one that is a phrase
                for (std::string& what : phraseFaults(PhraseList::SpkHello, entry->value))
                    fault(entry->line, std::move(what));
            else if (!tokensOf(entry->value).empty())
                fault(entry->line, "only phrases have tokens");
            if (std::ranges::find(kOneLine, message) != std::end(kOneLine) &&
                entry->value.find("\\n") != std::string::npos)
                fault(entry->line, "this is one line of the log or of the status bar");
        }
        for (auto at = entries_.lower_bound(kTextKeys); at != entries_.end(); ++at) {
            if (!at->first.starts_with(kTextKeys))
                return;
            const auto name = std::string_view(at->first).substr(kTextKeys.size());
            const auto* const row = std::ranges::find(kTextRows, name, &TextRow::name);
            if (row != std::end(kTextRows))
                checkPlaces(at->second.front(), places(row->english));
        }
    }

    void checkPlaces(const Entry& entry, const std::set<char>& expected) {
        const std::set<char> found = places(entry.value);
        for (const char place : expected)
            if (!found.contains(place))
                fault(entry.line, std::string("%") + place + " is missing");
        for (const char place : found)
            if (!expected.contains(place))
                fault(entry.line, std::string("nothing fills %") + place + " in");
    }

    void commaList(std::string_view key, std::size_t pieces) {
        const Entry* entry = entryOf(key);
        if (entry != nullptr && text::split(entry->value, ',').size() != pieces)
            fault(entry->line,
                  std::string(key) + " has to have " + std::to_string(pieces) + " pieces, divided by commas");
    }

    void captions() {
        static const auto seenTogether = captionsSeenTogether();
        for (const std::vector<std::string>& together : seenTogether) {
            std::vector<Caption> captions;
            for (const std::string& key : together)
                if (const Entry* entry = entryOf(key))
                    captions.push_back({key, entry->value});
            for (const auto& [first, second] : sharedLetters(captions)) {
                std::string what = first;
                what.append(" has the same Alt letter as ").append(second);
                if (told_.insert(what).second)
                    fault(entryOf(first)->line, std::move(what));
            }
        }
    }

    std::string_view bytes_;
    std::map<std::string, std::vector<Entry>, std::less<>> entries_; ///< by key
    std::set<std::string, std::less<>> used_;                        ///< tokens in phrases
    std::set<std::string> told_;                                     ///< pages share what stands around them
    std::vector<LanguageFault> faults_;
};

} // namespace

std::vector<LanguageFault> checkLanguage(std::string_view bytes) {
    return Check(bytes).faults();
}

} // namespace brovin::language
