#include "companion/phrase_engine.h"

#include "companion/companion_world.h"

#include <gtest/gtest.h>

namespace brovin::companion {
namespace {

using language::PhraseList;
using Texts = std::vector<std::string>;
using World = CompanionWorld;

TEST(PickPhrase, goesByTheDraw) {
    constexpr std::tuple<std::string_view, double, std::string_view, std::string_view> kCases[] = {
        {"only", 0.999, "only", "one alternative"},
        {"a|b", 0.499, "a", "just below the half"},
        {"a|b", 0.5, "b", "at the half"},
        {"a|b|c", 0.9999999999999999, "c", "the largest draw there is"},
        {"a||c", 0.4, "", "an empty alternative counts"},
        {"a|", 0.9, "", "so does one behind the last bar"},
        {"a+b", 0, "a+b", "no animation, no sequence"},
        {"&ani&Wave", 0, "&ani&Wave", "no plus, no sequence"},
        {"&Name& &nobody& R&D", 0, "&Name& &nobody& R&D", "none of these is a token"},
    };
    for (const auto& [list, draw, picked, why] : kCases) {
        World world;
        world.random.draws = {draw};
        EXPECT_EQ(picked, world.phrases.pickPhrase(list)) << why;
        EXPECT_TRUE(world.requests().empty()) << why;
    }
    EXPECT_EQ(std::nullopt, World().phrases.pickPhrase("")) << "there is nothing to pick";
}

TEST(PickPhrase, fillsEachTokenFromItsOwnList) {
    const std::pair<std::string, PhraseList> tokens[] = {
        {"&animal&", PhraseList::SpkAnimal}, {"&name&", PhraseList::SpkNames},
        {"&namem&", PhraseList::SpkNames},   {"&song&", PhraseList::SpkSongs},
        {"&job&", PhraseList::SpkJobs},      {"&stupid&", PhraseList::SpkStupid},
        {"&music&", PhraseList::SpkMusic},   {"&crown&", PhraseList::SpkCrowning},
        {"&poo&", PhraseList::SpkPoo},       {"&col&", PhraseList::SpkCharCols},
        {"&teeth&", PhraseList::SpkTeeth},
    };
    for (const auto& [token, list] : tokens) {
        const bool specific = token == "&col&" || token == "&teeth&";
        World world;
        EXPECT_EQ(specific ? std::optional<std::string>("") : std::nullopt, world.phrases.pickPhrase(token))
            << token << ": where there is nothing to pick the phrase is lost";
        world.list(list, specific ? "Robby|No|Peedy|YES" : "yes");
        EXPECT_EQ("yesyes", world.phrases.pickPhrase(token + token));
    }
}

TEST(PickPhrase, drawsForTheTokensInAFixedOrder) {
    World world;
    world.list(PhraseList::SpkNames, "Ann|Bob|Cid");
    world.list(PhraseList::SpkAnimal, "newt|yak");
    world.list(PhraseList::SpkPoo, "sit|stand");
    world.list(PhraseList::SpkDudeM, "Squire|Sir");
    world.list(PhraseList::SpkDudeF, "Lady|Madam");
    // The phrase, dude, animal, name, poo, two of namem, two of word
    world.random.draws = {0, 0.99, 0.99, 0.5, 0.99, 0.99, 0, 0, 0.999};
    EXPECT_EQ("Fleecy Broth Cid Ann stand Bob Bob yak, Madam",
              world.phrases.pickPhrase("&word& &word& &namem& &namem& &poo& &name& &name& &animal&&dude&"));
    EXPECT_TRUE(world.random.draws.empty()) << "equal tokens share a draw, but for namem and word";
}

TEST(PickPhrase, expandsAValueOnlyWhereALaterTokenLooksForIt) {
    World world;
    world.list(PhraseList::SpkCharCols, "else|&word& &col& &dude&");
    EXPECT_EQ("Fleecy &col& &dude&", world.phrases.pickPhrase("&col&"));
}

TEST(PickPhrase, givesUpOnCirclesAndGoesOnAfterwards) {
    const std::string cases[][4] = {
        {"&name&", "", "", "names itself"},
        {"&namem& and &namem&", "", "", "names itself twice over"},
        {"x&animal&", "y&name&", "", "two lists in a circle"},
        {"&col&", "", "else|&name&", "through a value that is not a pick"},
    };
    for (const auto& [names, animals, colours, why] : cases) {
        World world;
        world.list(PhraseList::SpkNames, names);
        world.list(PhraseList::SpkAnimal, animals);
        world.list(PhraseList::SpkCharCols, colours);
        EXPECT_EQ(std::nullopt, world.phrases.pickPhrase("&name&")) << why;
        EXPECT_EQ("fine", world.phrases.pickPhrase("fine")) << why;
    }
}

TEST(PickPhrase, boundsWhatAPhraseCosts) {
    const auto times = [](int count, const std::string& text) {
        std::string repeated;
        for (int i = 0; i < count; ++i)
            repeated += text;
        return repeated;
    };
    World world;
    world.list(PhraseList::SpkNames, std::string(1000, 'x'));
    world.list(PhraseList::SpkSongs, times(50, "&name&"));
    world.list(PhraseList::SpkJobs, times(100, "&song&"));
    EXPECT_EQ(50'000U, world.phrases.pickPhrase("&song&").value_or("").size());
    EXPECT_EQ(std::nullopt, world.phrases.pickPhrase("&job&")) << "five million characters";
    world.tables = {};
    world.list(PhraseList::SpkNames, "x");
    EXPECT_EQ(std::nullopt, world.phrases.pickPhrase(times(5000, "&namem&"))) << "five thousand picks";
}

TEST(PickPhrase, performsSequencesOnTheCharacter) {
    const std::tuple<std::string, Texts, std::string_view> cases[] = {
        {"&ani&Wave+Hello&dude&+&ani&Pleased", {"play Wave", "speak Hello, Fool", "play Pleased"}, "in turn"},
        {"One+&ani&Wave", {"speak One", "play Wave"}, "speech first"},
        {"&ani&Wave+", {"play Wave"}, "an empty part is nothing to say"},
        {"&ani&Wave+&song&+Bye", {"play Wave", "speak Bye"}, "a part that cannot be filled in is left out"},
        {"a &ani&Wave+b", {"speak a &ani&Wave", "speak b"}, "an animation is the whole part or none"},
    };
    for (const auto& [phrase, requests, why] : cases) {
        World world;
        EXPECT_EQ(" ", world.phrases.pickPhrase(phrase)) << "what is left to say";
        EXPECT_EQ(requests, world.requests()) << why;
    }
    World world;
    world.random.draws = {0.9};
    EXPECT_EQ("Good day", world.phrases.pickPhrase("&ani&Wave+Hello|Good day"));
    EXPECT_TRUE(world.requests().empty()) << "only what is picked is performed";
    world.actor.character = nullptr;
    EXPECT_EQ(" ", world.phrases.pickPhrase("&ani&Wave+Hello")) << "nobody is there to perform";
}

TEST(PickPhrase, remembersTheWayBackFromThreeAnimations) {
    constexpr std::pair<std::string_view, std::string_view> kCases[] = {
        {"Read", "ReadReturn"}, {"Write", "WriteReturn"}, {"GetAttention", "GetAttentionReturn"},
        {"read", ""},           {"Reading", ""},          {"Wave", ""},
    };
    for (const auto& [picked, pending] : kCases) {
        World world;
        EXPECT_EQ(picked, world.phrases.pickPhrase(picked));
        EXPECT_EQ(pending, world.phrases.pendingReturnAnimation) << picked;
    }
}

TEST(GetSpecific, walksNamesAndValuesAlike) {
    const std::tuple<std::string, std::string, std::optional<std::string>, std::string_view> cases[] = {
        {"Genie", "Peedy|Green|Genie|Blue|else|Grey", "blue", "in lower case"},
        {"Robby", "Peedy|Green|Genie|Blue|else|Grey", "grey", "anybody else"},
        {"Peedy", "Peedy|Green|Peedy|Red", "green", "the first match"},
        {"Robby", "else|Grey|Robby|Red", "red", "the name goes before the default"},
        {"Robby", "else|Grey|else|Black", "black", "the last default"},
        {"Robby", "Peedy|Green", "", "no default"},
        {"Genie", "Peedy|Genie|Merlin|Blue", "merlin", "a value that is the name counts as one"},
        {"Peedy", "else|Grey|Peedy", std::nullopt, "a name without a value"},
        {"Robby", "Peedy|Green|else", std::nullopt, "a default without a value"},
    };
    for (const auto& [name, list, value, why] : cases) {
        World world;
        world.actor.name = name;
        EXPECT_EQ(value, world.phrases.getSpecific(list)) << why;
    }
}

TEST(GetDude, takesTheFirstNameOfTheUser) {
    const std::pair<std::optional<std::string>, std::string> cases[] = {
        {std::nullopt, ", Fool"},    {"", ", Fool"},   {"   ", ", Fool"}, {"joe bloggs", ", Joe"},
        {"  JOE  BLOGGS ", ", Joe"}, {"joe", ", Joe"},
    };
    for (const auto& [user, dude] : cases) {
        World world;
        if (user)
            world.settings.set("User", *user);
        EXPECT_EQ(dude, world.phrases.getDude()) << user.value_or("nobody");
    }
}

TEST(GetDude, weighsTheNameTwiceAgainstEachOfTheChosenKind) {
    const std::pair<int, Texts> cases[] = {
        // by what is chosen in cmbDudeSex
        {-1, {", Joe", ", Joe", ", Squire", ", Sir", ", Lady"}},
        {0, {", Joe", ", Joe", ", Squire", ", Sir", ", Lady"}},
        {1, {", Joe", ", Joe", ", Squire", ", Sir"}},
        {2, {", Joe", ", Joe", ", Lady"}},
    };
    for (const auto& [kind, dudes] : cases) {
        World world;
        world.settings.set("User", "joe bloggs");
        world.list(PhraseList::SpkDudeM, "Squire|Sir");
        world.list(PhraseList::SpkDudeF, "Lady");
        world.form.cmbDudeSex.setItems({{"both", 0}, {"male", 0}, {"female", 0}});
        world.form.cmbDudeSex.select(kind);
        for (std::size_t i = 0; i < dudes.size(); ++i) {
            world.random.draws = {World::drawOf(i, dudes.size())};
            EXPECT_EQ(dudes[i], world.phrases.getDude()) << kind;
        }
        world.form.chkDude.setValue(1);
        EXPECT_EQ("", world.phrases.getDude());
        EXPECT_EQ("Hello.", world.phrases.pickPhrase("Hello&dude&."));
    }
}

} // namespace
} // namespace brovin::companion
