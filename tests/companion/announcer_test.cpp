#include "companion/announcer.h"

#include "companion/companion_world.h"

#include <gtest/gtest.h>

namespace brovin::companion {
namespace {

using language::PhraseList;
using platform::Button;
using Texts = std::vector<std::string>;

struct AnnouncerWorld : CompanionWorld {
    AnnouncerWorld() {
        list(PhraseList::AniExclamation, "Alert");
        list(PhraseList::AniInformation, "Explain");
        list(PhraseList::AniCritical, "Sad");
        list(PhraseList::AniQuestion, "Think");
        form.chkAgent.setValue(1);
    }
};

TEST(Announcer, letsTheCharacterActByTheStyle) {
    const std::tuple<int, ForceBox, Texts, std::string_view> cases[] = {
        {0, ForceBox::No, {}, "no icon"},
        {16, ForceBox::No, {"play Sad"}, "critical"},
        {32, ForceBox::No, {"play Think"}, "question"},
        {48, ForceBox::No, {"play Alert", "play Sad", "play Think"}, "it has the bits of all three"},
        {64, ForceBox::No, {"play Explain"}, "information"},
        {52, ForceBox::No, {"play Alert", "play Sad", "play Think"}, "buttons do not matter"},
        {16, ForceBox::Yes, {}, "a forced box leaves it out"},
        {64, ForceBox::Yes, {}, "a forced box leaves it out"},
        {36, ForceBox::Yes, {"play Think"}, "but not the question's"},
        {52, ForceBox::Yes, {"play Think"}, "nor that part of the exclamation"},
    };
    for (const auto& [style, force, plays, why] : cases)
        for (const bool visible : {false, true}) {
            AnnouncerWorld world;
            world.characters.only.isVisible = visible;
            world.announcer.agentMsgBox("hi", style, "title", force);
            Texts requests{visible ? "stop" : "show"};
            requests.insert(requests.end(), plays.begin(), plays.end());
            requests.emplace_back("speak hi");
            if (!visible)
                requests.emplace_back("hide");
            EXPECT_EQ(requests, world.requests()) << style << ": " << why;
            EXPECT_EQ(force == ForceBox::Yes ? 1U : 0U, world.dialogs.boxes.size()) << style << ": " << why;
        }
}

TEST(Announcer, showsABoxWhereItMust) {
    for (const bool agent : {false, true})
        for (const ForceBox force : {ForceBox::No, ForceBox::Yes}) {
            AnnouncerWorld world;
            world.form.chkAgent.setValue(agent ? 1 : 0);
            world.dialogs.answers = {Button::Yes};
            bool together = false;
            world.dialogs.onBox = [&](const auto& /*box*/) { together = world.characters.only.isVisible; };
            EXPECT_EQ(force == ForceBox::Yes ? Button::Yes : Button::None,
                      world.announcer.agentMsgBox("text", 36, "title", force));
            ASSERT_EQ(agent && force == ForceBox::No ? 0U : 1U, world.dialogs.boxes.size()) << "never two";
            EXPECT_EQ(agent && force == ForceBox::Yes, together) << "it stays while the user reads";
            EXPECT_FALSE(world.characters.only.isVisible) << "and leaves then";
            EXPECT_EQ(agent, !world.requests().empty());
        }
}

TEST(Announcer, asksEvenWhenTheCharacterOrItsAnimationsAreMissing) {
    AnnouncerWorld alone;
    alone.actor.character = nullptr;
    alone.dialogs.answers = {Button::Yes};
    EXPECT_EQ(Button::Yes, alone.announcer.agentMsgBox("text", 36, "", ForceBox::Yes));

    AnnouncerWorld still;
    still.tables = {};
    still.announcer.agentMsgBox("text", 48, "", ForceBox::No);
    EXPECT_EQ((Texts{"show", "speak text", "hide"}), still.requests());
}

TEST(Announcer, leadsBackFromAnAnimationOnce) {
    const std::tuple<std::string, std::string, Texts> cases[] = {
        {"Peedy", "Read", {"stop", "play Read", "speak hi", "play ReadReturn"}},
        {"Merlin", "Write", {"stop", "play Write", "speak hi", "play WriteReturn"}},
        {"Peedy", "GetAttention", {"stop", "play GetAttention", "speak hi", "play GetAttentionReturn"}},
        {"Merlin",
         "GetAttention",
         {"stop", "play GetAttention", "play GetAttentionContinued", "play GetAttentionContinued", "speak hi",
          "play GetAttentionReturn"}},
    };
    for (const auto& [character, animation, requests] : cases) {
        AnnouncerWorld world;
        world.characters.only.isVisible = true;
        world.actor.name = character;
        world.tables = {};
        world.list(PhraseList::AniInformation, animation);
        world.announcer.agentMsgBox("hi", 64, "", ForceBox::No);
        EXPECT_EQ(requests, world.requests()) << character;
        world.characters.only.requests.clear();
        world.announcer.agentMsgBox("hi", 0, "", ForceBox::No);
        EXPECT_EQ((Texts{"stop", "speak hi"}), world.requests()) << "not again";
    }
}

TEST(Announcer, showsNoSpeechTags) {
    constexpr std::pair<std::string_view, std::string_view> kCases[] = {
        {"", ""},
        {"\\Emp\\Hello", "Hello"},
        {"Wait.\\Pau=500\\ Done", "Wait. Done"},
        {"\\Chr=\"Whisper\"\\a\\Emp\\b\\Rst\\", "ab"},
        {"a\\b", "a"},
        {"a\r\nb", "a\r\nb"},
    };
    for (const auto& [text, shown] : kCases)
        EXPECT_EQ(shown, withoutSpeechTags(text)) << text;
    AnnouncerWorld world;
    world.announcer.agentMsgBox("\\Emp\\Hello", 36, "", ForceBox::Yes);
    EXPECT_EQ("Hello", world.dialogs.boxes[0].text);
    EXPECT_EQ("speak \\Emp\\Hello", world.requests()[2]) << "the character needs them";
}

} // namespace
} // namespace brovin::companion
