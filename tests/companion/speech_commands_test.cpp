#include "companion/speech_commands.h"

#include "companion/companion_world.h"

#include <gtest/gtest.h>

namespace brovin::companion {
namespace {

using language::PhraseList;
using Texts = std::vector<std::string>;

struct SpeechCommandsWorld : CompanionWorld {
    SpeechCommandsWorld() {
        list(PhraseList::SpkSay, "He said &saytext&|&saytext& and &saytext&");
        list(PhraseList::SpkDo, "no");
        list(PhraseList::SpkRepeat, "never");
        list(PhraseList::SpkTypeSomething, "type");
        list(PhraseList::SpkNames, "Ann");
        form.lstAnims.setItems({{"Wave", 0}, {"Read", 0}});
        form.lstAnims.select(1);
        form.chkAgent.setValue(1);
    }
    SpeechCommands commands{{form, form, tables, actor, phrases, announcer, random}};
};

TEST(SpeechCommands, obeyUpToTheirThresholds) {
    using Press = void (SpeechCommands::*)();
    const std::tuple<Press, double, Texts, std::string_view> cases[] = {
        {&SpeechCommands::cmdSay_Click, 0.6999, {"show", "speak hi"}, "69: as it was typed"},
        {&SpeechCommands::cmdSay_Click, 0.7, {"show", "speak He said hi"}, "70: in its own words"},
        {&SpeechCommands::cmdDo_Click, 0.6999, {"show", "play Read"}, "69"},
        {&SpeechCommands::cmdDo_Click, 0.7, {"show", "speak no"}, "70: refused"},
        {&SpeechCommands::cmdRepeat_Click, 0.7999, {"show", "stop", "speak \\Lst\\"}, "79"},
        {&SpeechCommands::cmdRepeat_Click, 0.8, {"show", "stop", "speak never"}, "80: refused"},
    };
    for (const auto& [press, draw, requests, why] : cases) {
        SpeechCommandsWorld world;
        world.form.txtSay.setText("hi");
        world.random.draws = {draw, 0};
        (world.commands.*press)();
        EXPECT_EQ(requests, world.requests()) << why;
    }
}

TEST(SpeechCommands, sayWhateverWasTyped) {
    const std::string tall(10'000, 'x');
    std::string demanding;
    for (int i = 0; i < 1250; ++i)
        demanding += "&namem&"; // more than one phrase may cost
    const std::tuple<std::string, double, Texts, std::string_view> cases[] = {
        {"a|b", 0.99, {"speak b"}, "alternatives"},
        {"&name& \\Emp\\x", 0, {"speak Ann \\Emp\\x"}, "tokens and tags"},
        {"&nobody& R&D 1+1", 0, {"speak &nobody& R&D 1+1"}, "no tokens"},
        {"a+&ani&Wave", 0, {"speak a", "play Wave", "speak  "}, "a sequence"},
        {"|", 0, {"speak "}, "nothing between the bars"},
        {tall, 0, {"speak " + tall}, "ten thousand letters"},
        {demanding, 0, {"speak " + demanding}, "what cannot be filled in is said as it stands"},
    };
    for (const auto& [typed, pick, requests, why] : cases) {
        SpeechCommandsWorld world;
        world.form.txtSay.setText(typed);
        world.random.draws = {0, pick};
        world.commands.cmdSay_Click();
        EXPECT_EQ(requests, (Texts{world.requests().begin() + 1, world.requests().end()})) << why;
    }
    SpeechCommandsWorld world;
    world.form.txtSay.setText("a|b &saytext&");
    world.random.draws = {0.7, 0.3};
    world.commands.cmdSay_Click();
    EXPECT_EQ("speak b &saytext&", world.requests()[1]) << "the typed bar divides the whole list";
}

TEST(SpeechCommands, askForATextCrosswise) {
    SpeechCommandsWorld world;
    world.form.txtSay.place = [] { return ui::Place{200, 30}; };
    world.commands.cmdSay_Click();
    EXPECT_EQ((Texts{"show", "gestureAt 30 200", "speak type"}), world.requests());
}

TEST(SpeechCommands, doNothingWithoutAnAnimation) {
    SpeechCommandsWorld world;
    world.form.lstAnims.select(ui::ListBox::kNone);
    world.commands.cmdDo_Click();
    EXPECT_TRUE(world.requests().empty());
    world.commands.lstAnims_Click();
    EXPECT_FALSE(world.form.cmdDo.enabled());
}

TEST(SpeechCommands, tryTheReminderOut) {
    for (const bool visible : {false, true}) {
        SpeechCommandsWorld world;
        world.characters.only.isVisible = visible;
        world.form.txtReminder.setText("Bed&name&");
        world.commands.cmdSpeak_Click();
        EXPECT_EQ(visible ? (Texts{"stop", "speak BedAnn"}) : (Texts{"stop", "show", "speak BedAnn", "hide"}),
                  world.requests());
    }
    SpeechCommandsWorld alone;
    alone.actor.character = nullptr;
    alone.form.txtReminder.setText("Bed&name&");
    alone.commands.cmdSpeak_Click();
    ASSERT_EQ(1U, alone.dialogs.boxes.size());
    EXPECT_EQ("BedAnn", alone.dialogs.boxes[0].text);
}

} // namespace
} // namespace brovin::companion
