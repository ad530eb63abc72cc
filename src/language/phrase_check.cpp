#include "language/phrase_check.h"

#include "text/strings.h"

#include <algorithm>
#include <array>

namespace brovin::language {
namespace {

constexpr std::string_view kAni = "&ani&";

/// What every character can do and comes to an end by itself: no Reading, Searching and the like, which
/// repeat.
constexpr std::string_view kAnimations[] = {
    "Acknowledge",   "Alert",
    "Announce",      "Blink",
    "Confused",      "Congratulate",
    "Decline",       "DoMagic1",
    "DoMagic2",      "DontRecognize",
    "Explain",       "GestureDown",
    "GestureLeft",   "GestureRight",
    "GestureUp",     "GetAttention",
    "Greet",         "LookDown",
    "LookLeft",      "LookRight",
    "LookUp",        "Pleased",
    "Process",       "Read",
    "RestPose",      "Sad",
    "Search",        "StartListening",
    "StopListening", "Suggest",
    "Surprised",     "Think",
    "Uncertain",     "Wave",
    "Write",         "ReadReturn",
    "WriteReturn",   "GetAttentionReturn",
};
/// These leave something in the hands of the character, or a hand in the air.
constexpr std::string_view kNeedReturn[] = {"Read", "Write", "GetAttention"};

constexpr struct {
    std::string_view token;
    PhraseList list;
} kWordTokens[] = {
    {"&col&", PhraseList::SpkCharCols},   {"&teeth&", PhraseList::SpkTeeth},
    {"&animal&", PhraseList::SpkAnimal},  {"&name&", PhraseList::SpkNames},
    {"&song&", PhraseList::SpkSongs},     {"&job&", PhraseList::SpkJobs},
    {"&stupid&", PhraseList::SpkStupid},  {"&music&", PhraseList::SpkMusic},
    {"&crown&", PhraseList::SpkCrowning}, {"&poo&", PhraseList::SpkPoo},
};
constexpr std::string_view kOtherTokens[] = {"&dude&", "&namem&", "&word&"};

bool isLetter(char sign) {
    return (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z');
}

bool isAnimation(std::string_view name) {
    return std::ranges::find(kAnimations, name) != std::end(kAnimations);
}

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

class PhraseCheck {
public:
    PhraseCheck(PhraseList list, std::string_view phrase) : list_(list), phrase_(phrase) {}

    std::vector<std::string> faults() {
        switch (kindOf(list_)) {
        case ListKind::Animations:
            animation(phrase_);
            break;
        case ListKind::Phrases:
            tokens();
            sequence();
            signs();
            break;
        case ListKind::Words:
        case ListKind::Pairs:
            if (!tokensOf(phrase_).empty() || phrase_.find('+') != std::string_view::npos)
                fault("a word that fills a token in has no tokens and no plus sign of its own");
            break;
        }
        return std::move(faults_);
    }

private:
    void fault(std::string text) { faults_.push_back(std::move(text)); }

    void animation(std::string_view name) {
        if (!isAnimation(name))
            fault(quoted(name) + " is no animation that every character has and that ends by itself");
    }

    void tokens() {
        const auto found = tokensOf(phrase_);
        for (const std::string_view token : found) {
            const bool typed = token == "&saytext&" && list_ == PhraseList::SpkSay;
            if (token != kAni && !typed && !listBehind(token) &&
                std::ranges::find(kOtherTokens, token) == std::end(kOtherTokens))
                fault(quoted(token) + " is no token here");
        }
        if (list_ == PhraseList::SpkSay && std::ranges::find(found, "&saytext&") == found.end())
            fault("the text that was typed, \"&saytext&\", is missing");
        for (const std::string_view before : {" &dude&", ",&dude&"})
            if (phrase_.find(before) != std::string_view::npos)
                fault("\"&dude&\" brings its comma and its blank along");
    }

    /// Animations and spoken parts between plus signs.
    void sequence() {
        const std::size_t animations = text::countOf(phrase_, kAni);
        if (animations == 0)
            return;
        const auto parts = text::split(phrase_, '+');
        if (parts.size() == 1)
            return fault("without a plus sign the animation is read out");
        std::size_t played = 0;
        for (std::string_view part : parts) {
            if (part.empty())
                fault("nothing stands between two plus signs");
            if (!part.starts_with(kAni))
                continue;
            ++played;
            animation(part.substr(kAni.size()));
        }
        if (played != animations)
            fault("\"&ani&\" stands at the beginning of a part between plus signs");
        for (const std::string_view name : kNeedReturn) {
            const auto times = [&](const std::string& part) { return std::ranges::count(parts, part); };
            if (times("&ani&" + std::string(name)) != times("&ani&" + std::string(name) + "Return"))
                fault(quoted(name) + " needs " + quoted(std::string(name) + "Return") + " after it");
        }
    }

    void signs() {
        if (text::countOf(phrase_, "\\") % 2 != 0)
            fault("a speech tag is not closed");
        if (phrase_.find("  ") != std::string_view::npos)
            fault("two blanks stand side by side");
    }

    PhraseList list_;
    std::string_view phrase_;
    std::vector<std::string> faults_;
};

} // namespace

ListKind kindOf(PhraseList list) {
    if (list < PhraseList::SpkClick)
        return ListKind::Animations;
    if (list <= PhraseList::SpkRandomVisible)
        return ListKind::Phrases;
    return list == PhraseList::SpkCharCols || list == PhraseList::SpkTeeth ? ListKind::Pairs
                                                                           : ListKind::Words;
}

std::vector<std::string_view> tokensOf(std::string_view text) {
    std::vector<std::string_view> tokens;
    for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at)) {
        const auto* const end = std::find_if_not(text.begin() + at + 1, text.end(), isLetter);
        const auto length = static_cast<std::size_t>(end - text.begin()) - at;
        const bool token = length > 1 && end != text.end() && *end == '&';
        if (token)
            tokens.push_back(text.substr(at, length + 1));
        at += token ? length + 1 : 1;
    }
    return tokens;
}

std::optional<PhraseList> listBehind(std::string_view token) {
    for (const auto& row : kWordTokens)
        if (row.token == token)
            return row.list;
    return std::nullopt;
}

std::vector<std::string> phraseFaults(PhraseList list, std::string_view phrase) {
    return PhraseCheck(list, phrase).faults();
}

} // namespace brovin::language
