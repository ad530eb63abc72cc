#include "voice/utterance.h"

#include "text/utf8.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace brovin::voice {
namespace {

// An utterance is cut at the end of a sentence when it is longer than the first, at a blank when it is longer
// than the second, and anywhere when it is longer than the third, in characters: memory stays bounded, and a
// character that falls silent is not kept waiting.
constexpr std::size_t kLongEnough = 400;
constexpr std::size_t kLong = 1500;
constexpr std::size_t kTooLong = 4000;

constexpr char kCommand = '\x01';
constexpr int kSpell = 18;

bool isBlank(char32_t c) {
    return c == U' ' || c == U'\n';
}

bool endsSentence(char32_t c) {
    return std::u32string_view(U".!?\n…।。！？").find(c) != std::u32string_view::npos;
}

/// Control characters would be commands to the synthesizer; nothing can be said of them, nor of stray bytes.
char32_t sayable(const text::Decoded& decoded) {
    const char32_t c = decoded.codePoint;
    const bool control = (c < 0x20 && c != U'\n') || (c >= 0x7F && c < 0xA0);
    const bool mark = c == 0x200B || c == 0xFEFF || c == 0xFFFD;
    return !decoded.valid || control || mark ? U' ' : c;
}

class Cutter {
public:
    explicit Cutter(const Timbre& timbre) : timbre_(timbre) {}

    std::vector<Utterance> cut(const std::vector<character::SpokenRun>& runs) {
        for (const character::SpokenRun& run : runs)
            take(run);
        close();
        return std::move(done_);
    }

private:
    void take(const character::SpokenRun& run) {
        const bool whispered = run.style.tone == character::Tone::Whisper;
        if (run.pause.count() > 0 || whispered != open_.whispered || run.style.wordPauses != open_.wordPauses)
            close();
        if (open_.text.empty() && open_.pause.count() == 0)
            open_.bookmarksBefore.insert(open_.bookmarksBefore.end(), run.bookmarks.begin(),
                                         run.bookmarks.end());
        else
            for (const std::int32_t number : run.bookmarks)
                open_.bookmarks.push_back({open_.origins.size(), number});
        open_.pause += run.pause;
        open_.whispered = whispered;
        open_.wordPauses = run.style.wordPauses;
        wanted_ = prosodyOf(run.style, timbre_);
        takeText(run.text, run.offset);
    }

    void takeText(std::string_view text, std::size_t offset) {
        while (!text.empty()) {
            const text::Decoded decoded = text::decodeUtf8(text);
            const char32_t c = sayable(decoded);
            if (!isBlank(c) && (!hasWords_ || wanted_ != now_))
                changeStyle(offset);
            add(c, offset);
            offset += decoded.bytes;
            text.remove_prefix(decoded.bytes);
            closeWhereLong();
        }
    }

    void add(char32_t c, std::size_t offset) {
        text::appendUtf8(open_.text, c);
        open_.origins.push_back(offset);
        if (!isBlank(c)) {
            hasWords_ = true;
            // The synthesizer may report a word by the blank before it.
            for (; wordEnd_ < open_.origins.size(); ++wordEnd_)
                if (open_.origins[wordEnd_] < offset)
                    open_.origins[wordEnd_] = offset;
        }
        beforeLast_ = std::exchange(last_, c);
    }

    /// Between two words by commands; within one they would be mistaken for a part of it.
    void changeStyle(std::size_t offset) {
        if (hasWords_ && !isBlank(last_))
            close();
        if (!hasWords_) {
            open_.prosody = now_ = wanted_;
            now_.emphasis = 0; // these two can be had by command only
            now_.spelled = false;
        }
        addCommands(offset);
        now_ = wanted_;
    }

    void addCommands(std::size_t offset) {
        const struct {
            int before;
            int after;
            char letter;
        } commands[] = {
            {now_.rate, wanted_.rate, 'S'},         {now_.pitch, wanted_.pitch, 'P'},
            {now_.range, wanted_.range, 'R'},       {now_.volume, wanted_.volume, 'A'},
            {now_.emphasis, wanted_.emphasis, 'F'}, {spelling(now_), spelling(wanted_), 'Y'},
        };
        for (const auto& [before, after, letter] : commands)
            if (before != after)
                addCommand(after, letter, offset);
    }

    void addCommand(int number, char letter, std::size_t offset) {
        const std::string command = kCommand + std::to_string(number) + letter;
        open_.text += command;
        open_.origins.insert(open_.origins.end(), command.size(), offset);
    }

    static int spelling(const Prosody& prosody) { return prosody.spelled ? kSpell : 0; }

    void closeWhereLong() {
        const std::size_t length = open_.origins.size();
        if ((length > kLongEnough && isBlank(last_) && endsSentence(beforeLast_)) ||
            (length > kLong && isBlank(last_)) || length > kTooLong) {
            open_.goesOn = isBlank(last_);
            close();
        }
    }

    /// What was begun is complete. What follows is said in the same manner unless told otherwise.
    void close() {
        Utterance next;
        next.whispered = open_.whispered;
        next.wordPauses = open_.wordPauses;
        if (!hasWords_) {
            open_.text.clear();
            open_.origins.clear();
        }
        if (hasWords_ || open_.pause.count() > 0 || !open_.bookmarksBefore.empty() ||
            !open_.bookmarks.empty())
            done_.push_back(std::move(open_));
        open_ = std::move(next);
        open_.prosody = now_ = wanted_;
        hasWords_ = false;
        wordEnd_ = 0;
        last_ = beforeLast_ = U' ';
    }

    const Timbre& timbre_;
    std::vector<Utterance> done_;
    Utterance open_;
    Prosody now_;    ///< at the end of the open utterance
    Prosody wanted_; ///< of the next word
    bool hasWords_ = false;
    std::size_t wordEnd_ = 0; ///< characters up to the end of the last word
    char32_t last_ = U' ';
    char32_t beforeLast_ = U' ';
};

} // namespace

std::size_t Utterance::originOf(std::size_t character) const {
    if (origins.empty())
        return 0;
    return origins[std::min(character, origins.size() - 1)];
}

bool Utterance::isBlankAt(std::size_t character) const {
    return character + 1 < origins.size() && origins[character] == origins[character + 1];
}

std::vector<Utterance> makeUtterances(const std::vector<character::SpokenRun>& runs, const Timbre& timbre) {
    return Cutter(timbre).cut(runs);
}

} // namespace brovin::voice
