#include "companion/phrase_engine.h"

#include "companion/word_generator.h"
#include "platform/random.h"
#include "text/strings.h"

#include <array>

namespace brovin::companion {
namespace {

using language::PhraseList;

constexpr std::string_view kAnimation = "&ani&";

/// A list that names itself through its tokens would never be done: what one phrase may cost at most.
constexpr int kMostPicks = 500;
constexpr int kMostDepth = 40;
constexpr std::size_t kLongestPhrase = std::size_t{1} << 16U;

enum class Source { Dude, Specific, Pick, Word };

} // namespace

/// One token and where its replacement comes from.
struct PhraseEngine::Token {
    std::string_view text;
    Source source;
    PhraseList list = PhraseList::SpkNames;
    bool oneByOne = false; ///< each occurrence gets a value of its own
};

namespace {

bool holds(std::string_view text, std::string_view what) {
    return text.find(what) != std::string_view::npos;
}

} // namespace

std::optional<std::string> PhraseEngine::pickPhrase(PhraseList list) {
    return pickPhrase(needs_.tables.list(list));
}

std::optional<std::string> PhraseEngine::pickPhrase(std::string_view list) {
    if (depth_ == 0)
        picks_ = 0;
    if (depth_ == kMostDepth || picks_ >= kMostPicks)
        return std::nullopt;
    ++picks_;
    ++depth_;
    auto phrase = pickOne(list);
    --depth_;
    return phrase;
}

std::optional<std::string> PhraseEngine::pickOne(std::string_view list) {
    const auto alternatives = text::split(list, '|');
    const std::size_t index = drawBelow(needs_.random, alternatives.size());
    if (index >= alternatives.size())
        return std::nullopt;
    std::string phrase(alternatives[index]);
    if (holds(phrase, kAnimation) && holds(phrase, "+")) {
        playSequence(phrase);
        phrase = " ";
    }
    auto expanded = expand(std::move(phrase));
    if (expanded == "Read" || expanded == "Write" || expanded == "GetAttention")
        pendingReturnAnimation = *expanded + "Return";
    return expanded;
}

std::optional<std::string> PhraseEngine::expand(std::string phrase) {
    // In the order of replacement: a value that holds a token itself is replaced only by a later row.
    static constexpr std::array<Token, 13> kTokens = {{
        {"&dude&", Source::Dude},
        {"&col&", Source::Specific, PhraseList::SpkCharCols},
        {"&teeth&", Source::Specific, PhraseList::SpkTeeth},
        {"&animal&", Source::Pick, PhraseList::SpkAnimal},
        {"&name&", Source::Pick, PhraseList::SpkNames},
        {"&song&", Source::Pick, PhraseList::SpkSongs},
        {"&job&", Source::Pick, PhraseList::SpkJobs},
        {"&stupid&", Source::Pick, PhraseList::SpkStupid},
        {"&music&", Source::Pick, PhraseList::SpkMusic},
        {"&crown&", Source::Pick, PhraseList::SpkCrowning},
        {"&poo&", Source::Pick, PhraseList::SpkPoo},
        {"&namem&", Source::Pick, PhraseList::SpkNames, true},
        {"&word&", Source::Word, PhraseList::SpkNames, true},
    }};
    for (const Token& token : kTokens) {
        while (holds(phrase, token.text)) {
            const auto value = valueFor(token);
            if (!value)
                return std::nullopt;
            const std::size_t places = token.oneByOne ? 1 : text::countOf(phrase, token.text);
            if (++picks_ > kMostPicks || phrase.size() + places * value->size() > kLongestPhrase)
                return std::nullopt;
            phrase = token.oneByOne ? text::replaceFirst(phrase, token.text, *value)
                                    : text::replaceAll(phrase, token.text, *value);
            if (!token.oneByOne)
                break;
        }
    }
    return phrase;
}

std::optional<std::string> PhraseEngine::valueFor(const Token& token) {
    switch (token.source) {
    case Source::Dude:
        return getDude();
    case Source::Specific:
        return getSpecific(needs_.tables.list(token.list));
    case Source::Pick:
        return pickPhrase(token.list);
    case Source::Word:
        return makeWord(needs_.random);
    }
    return std::nullopt;
}

std::optional<std::string> PhraseEngine::getSpecific(std::string_view list) const {
    const std::string lowered = needs_.letters.lowerCase(list);
    const std::string name = needs_.letters.lowerCase(needs_.actor.name);
    const auto items = text::split(lowered, '|');
    std::string otherwise;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool own = items[i] == name;
        if (!own && items[i] != "else")
            continue;
        if (i + 1 == items.size())
            return std::nullopt;
        if (own)
            return std::string(items[i + 1]);
        otherwise = items[i + 1];
    }
    return otherwise;
}

void PhraseEngine::playSequence(std::string_view phrase) {
    for (const std::string_view part : text::split(phrase, '+')) {
        if (part.starts_with(kAnimation))
            needs_.actor.play(std::string(part.substr(kAnimation.size())));
        else if (const auto spoken = pickPhrase(part))
            needs_.actor.speak(*spoken);
    }
}

std::string PhraseEngine::getDude() {
    if (needs_.characterPage.chkDude.checked())
        return {};
    const std::string proper = needs_.letters.properCase(needs_.settings.read(settings::setting::kUser));
    std::string_view user = text::trim(proper);
    user = user.empty() ? settings::setting::kUser.fallback : user.substr(0, user.find(' '));
    const std::string& male = needs_.tables.list(PhraseList::SpkDudeM);
    const std::string& female = needs_.tables.list(PhraseList::SpkDudeF);
    const int sex = needs_.characterPage.cmbDudeSex.selected();
    const std::string dudes = sex == 1 ? male : sex == 2 ? female : male + "|" + female;
    // The user's own name stands twice, so that it comes up twice as often as any other.
    std::string list(user);
    list.append("|").append(user).append("|").append(dudes);
    return ", " + pickPhrase(list).value_or(std::string());
}

} // namespace brovin::companion
