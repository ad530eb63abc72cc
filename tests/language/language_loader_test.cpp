#include "language/language_loader.h"

#include "language/language_world.h"
#include "text/strings.h"

#include <gtest/gtest.h>

namespace brovin::language {
namespace {

using platform::Button;
using World = LanguageWorld;

TEST(LanguageLoader, putsEachListInItsPlace) {
    using enum PhraseList;
    constexpr PhraseList kLists[] = {
        AniCritical,      AniQuestion,      AniInformation, AniExclamation, AniClick,
        AniNukeFiles,     AniRandomPopOut,  SpkClick,       SpkClickPeedy,  SpkClickMerlin,
        SpkClickRobby,    SpkClickGenie,    SpkClickNoMore, SpkCharMove,    SpkDo,
        SpkSay,           SpkTypeSomething, SpkRepeat,      SpkHello,       SpkRandomHidden,
        SpkRandomVisible, SpkStupid,        SpkCharCols,    SpkPoo,         SpkJobs,
        SpkNames,         SpkSongs,         SpkAnimal,      SpkMusic,       SpkCrowning,
        SpkTeeth,         SpkDudeM,         SpkDudeF};
    const auto keys = text::split(
        "aniCritical aniQuestion aniInformation aniExclamation aniClick aniNukeFiles aniRandomPopOut "
        "spkClick spkClickPeedy spkClickMerlin spkClickRobby spkClickGenie spkClickNoMore spkCharMove spkDo "
        "spkSay spkTypeSomething spkRepeat spkHello spkRandomHidden spkRandomVisible spkStupid spkCharCols "
        "spkPoo spkJobs spkNames spkSongs spkAnimal spkMusic spkCrowning spkTeeth spkDudeM spkDudeF",
        ' ');
    ASSERT_EQ(std::size(kLists), keys.size());
    std::string lines;
    for (const std::string_view key : keys)
        lines.append(key).append("=").append(key).append("|\n ").append(key).append(" = and more\n");
    World world;
    world.load(lines + "spkhello=not this\n");
    for (std::size_t i = 0; i < keys.size(); ++i)
        EXPECT_EQ(std::string(keys[i]) + "| and more", world.tables.list(kLists[i]));
}

TEST(LanguageLoader, fillsTheMessages) {
    constexpr std::tuple<std::string_view, std::int32_t, std::string_view, std::string_view> kCases[] = {
        {"dlg7=a=b", 7, "a=b", "signs in the value stay"},
        {"dlg007=x", 7, "x", "leading zeros"},
        {"dlg7b=x", 7, "x", "as far as the digits go"},
        {"dlg0= x ", 0, " x ", "blanks in the value stay"},
        {"dlg100=x", 100, "x", "the last one"},
        {"dlg7=x\ndlg7=y", 7, "y", "a later line wins"},
        {"dlg7=x\ndlg107=y\ndlg-7=y\ndlg99999999999=y\nDLG7=y", 7, "x", "no such numbers, no such key"},
    };
    for (const auto& [line, number, text, why] : kCases) {
        World world;
        world.load(std::string(line));
        EXPECT_EQ(text, world.tables.messageTable.getMessage(Message{number})) << why;
    }
}

TEST(LanguageLoader, captionsTheControlsByName) {
    World world;
    world.load("lblcmdHelp=He&lp & more\nlbllblFeedback=Write\nlblNobody=x\nlblFeedback=no\nlblcmdhelp=no\n");
    EXPECT_EQ("He&lp & more", world.form.cmdHelp.caption());
    EXPECT_EQ("Help  more", world.form.cmdHelp.toolTip());
    EXPECT_EQ("Write", world.form.lblFeedback.caption());
    world.load("");
    EXPECT_EQ("Write", world.form.lblFeedback.caption()) << "until a file sets it again";
}

TEST(LanguageLoader, captionsAsManyTabsAsThereArePieces) {
    World world;
    world.load("envButtons=a,b,c,d,e,f,g,h,and one more\n");
    EXPECT_EQ("H", world.form.lblTabs[7].caption());
    EXPECT_EQ("A", world.form.lblTabs[0].caption()) << "the ninth piece is too much";
    world.load("envButtons=my FOLDERS,\n");
    EXPECT_EQ("My Folders", world.form.lblTabs[0].caption());
    EXPECT_EQ("My Folders", world.form.lblTabs[0].toolTip());
    EXPECT_EQ("My Folders", world.form.imgTabs[0].toolTip());
    EXPECT_EQ("img0", world.form.imgTabs[0].picture());
    EXPECT_TRUE(world.form.imgTabs[0].hand() && world.form.lblTabs[0].hand());
    EXPECT_EQ("", world.form.lblTabs[1].caption());
    EXPECT_EQ("C", world.form.lblTabs[2].caption()) << "the rest stays as it was";
}

TEST(LanguageLoader, restoresWhatWasChosenInTheDropDownLists) {
    constexpr std::pair<std::string_view, int> kCases[] = {
        {"2", 2}, {"0", 0}, {"3", ui::ListControl::kNone}, {"99999", ui::ListControl::kNone}};
    for (const auto& [stored, selected] : kCases) {
        World world;
        world.settings.set("DudeSex", std::string(stored));
        world.settings.set("CheckFreq", std::string(stored));
        world.load("");
        EXPECT_EQ(selected, world.form.cmbDudeSex.selected()) << stored;
        EXPECT_EQ(selected, world.form.cmbCheck.selected()) << stored;
    }
    World world;
    world.load("");
    world.load("");
    EXPECT_EQ(3, world.form.cmbDudeSex.count()) << "a second load begins anew";
    EXPECT_EQ(0, world.form.cmbDudeSex.selected()) << "nothing stored is the first entry";
}

TEST(LanguageLoader, leavesNothingOfTheLanguageBefore) {
    World world;
    int loaded = 0;
    world.loader.loaded = [&loaded] { ++loaded; };
    world.load("spkHello=Hi\ndlg1=one\ntext.reasonSilent=Psst\nmodeid={1}\nmodeid={2}\nlanguageid=1033\n");
    EXPECT_EQ("Psst", world.tables.messageTable.getText("reasonSilent"));
    EXPECT_EQ("{2}", world.tables.langModeId) << "not joined, replaced";
    EXPECT_EQ("1033", world.tables.langLanguageId);
    world.load("");
    EXPECT_EQ("", world.tables.list(PhraseList::SpkHello));
    EXPECT_EQ("", world.tables.messageTable.getMessage(Message::NastyNameAdvice));
    EXPECT_EQ("The server is silent", world.tables.messageTable.getText("reasonSilent"));
    EXPECT_EQ("", world.tables.langModeId + world.tables.langLanguageId);
    EXPECT_EQ("default.blp", world.settings.setting("Language"));
    EXPECT_EQ(2, loaded);
}

TEST(LanguageLoader, asksWhatToDoWithABrokenFile) {
    for (const std::string lines :
         {"envDudeOptions=a\n", "envCheckOptions=a\n", "envDudeOptions=\nenvCheckOptions=a\n"})
        for (const Button answer : {Button::Ok, Button::Cancel}) {
            World world;
            bool quit = false;
            world.loader.quit = [&quit] { quit = true; };
            world.install("a_first.blp", "envDudeOptions=a\nenvCheckOptions=b\nspkHello=Hi\n");
            world.install("default.blp", "envDudeOptions=a\nenvCheckOptions=b\nspkHello=Hello\n");
            world.install("z_broken.blp", lines);
            world.dialogs.answers = {answer};
            world.form.lstLang.select(2);
            ASSERT_EQ(1U, world.dialogs.boxes.size()) << lines;
            EXPECT_EQ("An error occurred loading your language file - you may need to download an update for "
                      "z_broken.blp.\r\n\r\nClick OK to load the default language or Cancel to quit.",
                      world.dialogs.boxes[0].text);
            EXPECT_EQ(49, world.dialogs.boxes[0].style);
            EXPECT_EQ(answer == Button::Cancel, quit);
            EXPECT_EQ(quit ? 2 : 0, world.form.lstLang.selected()) << "the first entry, whatever its name";
            EXPECT_EQ(quit ? "" : "Hi", world.tables.list(PhraseList::SpkHello));
        }
}

TEST(LanguageLoader, takesAFileThatHasGoneForABrokenOne) {
    World world;
    world.install("default.blp", "");
    world.folder.files.clear();
    bool quit = false;
    world.loader.quit = [&quit] { quit = true; };
    world.dialogs.answers = {Button::Ok, Button::Cancel};
    world.form.lstLang.select(0);
    EXPECT_EQ(2U, world.dialogs.boxes.size()) << "the first entry is the one that has gone";
    EXPECT_TRUE(quit);
}

TEST(LanguageLoader, forgetsNoChoiceWhenNothingIsSelected) {
    World world;
    world.load("");
    world.form.lstLang.select(ui::ListControl::kNone);
    EXPECT_EQ("default.blp", world.settings.setting("Language"));
}

} // namespace
} // namespace brovin::language
