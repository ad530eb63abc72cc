#include "language/language_check.h"

#include "language/alt_letters.h"
#include "language/language_catalogue.h"
#include "language/language_file.h"
#include "language/language_keys.h"
#include "language/language_tables.h"
#include "language/phrase_check.h"
#include "text/strings.h"
#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <set>
#include <span>

namespace brovin::language {
namespace {

/// Lines of the log and of the status bar.
constexpr Message kOneLine[] = {Message::LogEmptied,     Message::NeverScanned,    Message::LastScanned,
                                Message::NextScan,       Message::ScanUnderWay,    Message::LogScanBegun,
                                Message::LogScanSum,     Message::LogScanFinished, Message::LogNothingFound,
                                Message::ScanningFolder, Message::LogFileDeleted,  Message::LogFolderDeleted};

/// Whether what another list follows ends with a bar: the list for all characters stands behind that of one.
bool isFollowed(PhraseList list) {
    return list >= PhraseList::SpkClickPeedy && list <= PhraseList::SpkClickGenie;
}

class Check {
public:
    explicit Check(std::string_view bytes) : bytes_(bytes) {}

    LanguageFaults faults() {
        head();
        readLines();
        missingKeys();
        for (std::size_t i = 0; i < known_.size(); ++i)
            if (!found_[i].empty())
                checkKey(known_[i], found_[i]);
        for (const Entry* entry : unknown_)
            fault(entry->line, "nothing reads \"" + std::string(entry->key) + "\"");
        for (std::size_t list = 0; list < kPhraseListKeys.size(); ++list)
            checkList(static_cast<PhraseList>(list));
        unusedWords();
        for (const auto& [key, pieces] : kCommaLists)
            commaList(key, pieces);
        captions();
        std::ranges::stable_sort(faults_, {}, &LanguageFault::line);
        return {std::move(missing_), std::move(faults_)};
    }

private:
    struct Entry {
        std::string_view key;
        std::size_t line;
        std::string_view value;
    };

    void fault(std::size_t line, std::string text) { faults_.push_back({line, std::move(text)}); }

    [[nodiscard]] std::size_t numberOf(std::string_view knownKey) const {
        const auto known = std::ranges::lower_bound(known_, knownKey, {}, &LanguageKey::key);
        return static_cast<std::size_t>(known - known_.begin());
    }
    [[nodiscard]] std::span<const Entry> entriesOf(std::string_view knownKey) const {
        return found_[numberOf(knownKey)];
    }
    /// The first entry of a key; null: there is none, which has been told.
    [[nodiscard]] const Entry* entryOf(std::string_view knownKey) const {
        const auto found = entriesOf(knownKey);
        return found.empty() ? nullptr : &found.front();
    }
    [[nodiscard]] std::span<const Entry> entriesOf(PhraseList list) const {
        static const auto numbers = [this] {
            std::array<std::size_t, kPhraseListKeys.size()> all{};
            std::ranges::transform(kPhraseListKeys, all.begin(), [this](auto key) { return numberOf(key); });
            return all;
        }();
        return found_[numbers[static_cast<std::size_t>(list)]];
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

    /// Finds the entries of each key that is known, by going down both in the order of their keys: a file of
    /// a few lines is not asked for each of the hundreds.
    void readLines() {
        lines_ = linesOf(bytes_);
        for (std::size_t i = 0; i < lines_.size(); ++i)
            if (const auto keyed = keyedLine(lines_[i]))
                entries_.push_back({keyed->key, i + 1, keyed->value});
        std::ranges::stable_sort(entries_, {}, &Entry::key);
        std::size_t known = 0;
        for (std::span<const Entry> rest = entries_; !rest.empty();) {
            const auto end =
                std::ranges::find_if(rest, [&](const Entry& e) { return e.key != rest.front().key; });
            const auto same = rest.first(static_cast<std::size_t>(end - rest.begin()));
            rest = rest.subspan(same.size());
            while (known < known_.size() && known_[known].key < same.front().key)
                ++known;
            if (known < known_.size() && known_[known].key == same.front().key)
                found_[known] = same;
            else
                unknown_.push_back(&same.front());
        }
    }

    void missingKeys() {
        missing_.reserve(known_.size());
        for (std::size_t i = 0; i < known_.size(); ++i)
            if (found_[i].empty())
                missing_.emplace_back(known_[i].key);
    }

    void checkKey(const LanguageKey& known, std::span<const Entry> found) {
        const auto& [key, line, value] = found.front();
        if (found.size() > 1 && !phraseListOf(key))
            fault(found[1].line, known.key + " stands in line " + std::to_string(line) + " already");
        else if (key != "modeid" && key != "languageid" && text::trim(value).empty())
            fault(line, known.key + " is empty");
        if (key == "languageid" && value.find_first_not_of("0123456789") != std::string_view::npos)
            fault(line, "languageid is no number");
        if (known.message)
            checkMessage(*known.message, found.front());
        if (known.places)
            checkPlaces(found.front(), *known.places);
    }

    /// A list may take several lines, which are joined with nothing between them.
    void checkList(PhraseList list) {
        const auto found = entriesOf(list);
        if (found.empty())
            return;
        std::string all;
        for (std::size_t i = 0; i < found.size(); ++i) {
            const auto& [key, line, value] = found[i];
            const bool last = i + 1 == found.size();
            const bool bar = value.ends_with('|');
            if (!last && !bar && !found[i + 1].value.starts_with('|'))
                fault(line,
                      "without a bar at its end it runs into line " + std::to_string(found[i + 1].line));
            if (last && bar != isFollowed(list))
                fault(line, bar ? "the last line of a list ends without a bar"
                                : "the last line ends with a bar too, since another list follows it");
            checkLine(list, line, value);
            all += value;
        }
        if (kindOf(list) == ListKind::Pairs)
            checkPairs(found.front().line, all);
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
            const auto found = entriesOf(*listBehind(token));
            const bool names = token == "&name&" && used_.contains("&namem&");
            if (!found.empty() && !names && !used_.contains(token))
                fault(found.front().line, "no phrase uses " + std::string(token));
        }
    }

    void checkMessage(Message message, const Entry& entry) {
        if (message == Message::Reminder) // the only one that is a phrase
            for (std::string& what : phraseFaults(PhraseList::SpkHello, entry.value))
                fault(entry.line, std::move(what));
        else if (!tokensOf(entry.value).empty())
            fault(entry.line, "only phrases have tokens");
        if (std::ranges::find(kOneLine, message) != std::end(kOneLine) &&
            entry.value.find("\\n") != std::string_view::npos)
            fault(entry.line, "this is one line of the log or of the status bar");
    }

    void checkPlaces(const Entry& entry, const Places& expected) {
        const Places found = placesOf(entry.value);
        for (std::size_t place = 1; found != expected && place < found.size(); ++place)
            if (expected[place] && !found[place])
                fault(entry.line, "%" + std::to_string(place) + " is missing");
            else if (found[place] && !expected[place])
                fault(entry.line, "nothing fills %" + std::to_string(place) + " in");
    }

    void commaList(std::string_view key, std::size_t pieces) {
        const Entry* entry = entryOf(key);
        if (entry != nullptr && text::split(entry->value, ',').size() != pieces)
            fault(entry->line,
                  std::string(key) + " has to have " + std::to_string(pieces) + " pieces, divided by commas");
    }

    /// By the numbers of known keys.
    [[nodiscard]] const std::vector<std::vector<std::size_t>>& seenTogether() const {
        static const auto all = [this] {
            std::vector<std::vector<std::size_t>> numbers;
            for (const std::vector<std::string>& together : captionsSeenTogether()) {
                numbers.emplace_back();
                for (const std::string& key : together)
                    numbers.back().push_back(numberOf(key));
            }
            return numbers;
        }();
        return all;
    }

    void captions() {
        for (const std::vector<std::size_t>& together : seenTogether()) {
            std::vector<Caption> captions;
            for (const std::size_t known : together)
                if (!found_[known].empty())
                    captions.push_back({known_[known].key, found_[known].front().value});
            for (const auto& [first, second] : sharedLetters(captions)) {
                std::string what(first);
                what.append(" has the same Alt letter as ").append(second);
                if (told_.insert(what).second)
                    fault(entryOf(first)->line, std::move(what));
            }
        }
    }

    std::string_view bytes_;
    const std::vector<LanguageKey>& known_ = languageKeys();
    std::vector<std::string> lines_;
    std::vector<Entry> entries_;                               ///< by key
    std::vector<std::span<const Entry>> found_{known_.size()}; ///< what each known key has
    std::vector<const Entry*> unknown_;                        ///< of keys that nothing reads
    std::set<std::string, std::less<>> used_;                  ///< tokens in phrases
    std::set<std::string> told_;                               ///< pages share what stands around them
    std::vector<std::string_view> missing_;
    std::vector<LanguageFault> faults_;
};

} // namespace

LanguageFaults checkLanguage(std::string_view bytes) {
    return Check(bytes).faults();
}

} // namespace brovin::language
