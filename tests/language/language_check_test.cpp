#include "language/language_check.h"
#include "text/strings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace brovin::language {
namespace {

/// A file without fault.
std::string good() {
    std::ifstream file(std::filesystem::path(BROVIN_ASSETS) / "default.blp", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string told(const LanguageFaults& faults) {
    std::string all;
    for (const std::string_view key : faults.missing)
        all.append(key).append(" is missing\n");
    for (const LanguageFault& fault : faults.others)
        all += std::to_string(fault.line) + ": " + fault.text + "\n";
    return all;
}

TEST(LanguageCheck, findsEachKindOfFaultInAFileThatHadNone) {
    const struct {
        std::string_view what, with;
        std::string_view fault;
    } cases[] = {
        {"langversion=1.0", "langversion=one", "it is not offered"},
        {"languageid=1033", "languageid=English", "languageid is no number"},
        {"\ndlg2=", "\n; dlg2 ", "dlg2 is missing"},
        {"\ntext.reasonSilent=", "\ntext.silence=", "nothing reads \"text.silence\""},
        {"\nlblcmdNuke=&Scan NOW", "\nlblcmdNuke= ", "lblcmdNuke is empty"},
        {"\ndlg2=", "\ndlg1=", "dlg1 stands in line"},
        {"lblcmdNuke=&Scan NOW", "lblcmdNuke=Sc&an NOW",
         "lblcmdNuke has the same Alt letter as lblcmdAddFolder"},
        {"dlg51=Make %1 d&o:", "dlg51=Make %1 &do:", "lblcmdDo has the same Alt letter as dlg51"},
        {"dlg15=%1 nasties deleted%2.", "dlg15=%1 nasties deleted.", "%2 is missing"},
        {"dlg2=Add", "dlg2=%1 Add", "nothing fills %1 in"},
        {"dlg23=Last", "dlg23=Last\\n", "one line of the log"},
        {"dlg12=Leaving", "dlg12=Leaving&dude&", "only phrases have tokens"},
        {"envDudeOptions=Either,", "envDudeOptions=", "envDudeOptions has to have 3 pieces"},
        {"|else|teeth", "|teeth", "pairs are needed"},
        {"|else|teeth", "|Bonzi|teeth", "at the end \"else\""},
        {"aniCritical=Sad|", "aniCritical=Sulk|", "\"Sulk\" is no animation"},
        {"spkHello=Hello&dude&!|", "spkHello=Hello&dude&!", "without a bar at its end it runs into line"},
        {"spkHello=Hello&dude&!|", "spkHello=Hello&dude&!||", "nothing stands between two bars"},
        {"spkHello=Hello&dude&!|", "spkHello=Hello&dood&!|", "\"&dood&\" is no token here"},
        {"spkHello=Hello&dude&!|", "spkHello=Hello, &dude&!|", "brings its comma"},
        {"spkHello=Hello&dude&!|", "spkHello=Hello  you!|", "two blanks"},
        {"spkHello=Hello&dude&!|", "spkHello=\\Emp Hello|", "a speech tag is not closed"},
        {"spkHello=Hello&dude&!|", "spkHello=&saytext&|", "\"&saytext&\" is no token here"},
        {"spkHello=Hello&dude&!|", "spkHello=&ani&Wave|", "without a plus sign"},
        {"spkHello=Hello&dude&!|", "spkHello=&ani&Waves+Hello|", "\"Waves\" is no animation"},
        {"spkHello=Hello&dude&!|", "spkHello=Hello &ani&Wave+you|", "at the beginning of a part"},
        {"spkHello=Hello&dude&!|", "spkHello=&ani&Wave++Hello|", "nothing stands between two plus signs"},
        {"spkHello=Hello&dude&!|", "spkHello=&ani&Read+A letter!|", "\"Read\" needs \"ReadReturn\""},
        {"read: &saytext&|", "read.|", "the text that was typed"},
        {"spkAnimal=badger|", "spkAnimal=&stupid&|", "a word that fills a token in has no tokens"},
        {"&crown&", "you", "no phrase uses &crown&"},
        {"draught", "\xFF", "not in UTF-8"},
    };
    ASSERT_EQ("", told(checkLanguage(good())));
    for (const auto& [what, with, fault] : cases) {
        const std::string bad = text::replaceAll(good(), what, with);
        ASSERT_TRUE(bad != good()) << what;
        EXPECT_NE(std::string::npos, told(checkLanguage(bad)).find(fault)) << with << ":\n"
                                                                           << told(checkLanguage(bad));
    }
}

TEST(LanguageCheck, tellsTheLineAndEndsTheListsThatOthersFollowWithABar) {
    const std::string bad = text::replaceAll(good(), "a rumour about parrots.|", "a rumour about parrots.");
    const auto faults = checkLanguage(bad);
    ASSERT_EQ(1U, faults.others.size()) << told(faults);
    const auto& [line, what] = faults.others.front();
    EXPECT_EQ("the last line ends with a bar too, since another list follows it", what);
    EXPECT_EQ(line, 1 + text::countOf(bad.substr(0, bad.find("a rumour about parrots.")), "\n"));
}

} // namespace
} // namespace brovin::language
