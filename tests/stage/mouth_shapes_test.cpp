#include "character/stage/mouth_shapes.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>

namespace brovin::character {
namespace {

TEST(MouthShapes, followTheSounds) {
    using enum Mouth;
    const struct {
        Mouth mouth;
        std::initializer_list<std::string_view> sounds;
        std::string_view why;
    } cases[] = {
        {Closed, {"m", "b", "f", "p", "v", "", "_", "_:"}, "lips together, and silence"},
        {OpenWide1, {"g", "ɡ", "l", "iə", "ɪə", "k", "h", "ɹ", "ŋ", "j", "iː", "i", "ɪ"}, "g, l, ear"},
        {OpenWide2, {"n", "d", "t", "s", "z", "θ", "ð", "ʃ", "tʃ", "dʒ"}, "n, d, t"},
        {OpenWide3, {"ʌ", "ɛ", "ɜː", "ə", "eɪ", "əʊ", "ɚ"}, "hut, head, hurt"},
        {OpenWide4, {"æ", "aʊ", "aɪ", "ɑː", "a"}, "hat, how"},
        {OpenMedium, {"ɔɪ", "ɒ", "ɔː"}, "ahoy, hot"},
        {OpenNarrow, {"uː", "oʊ", "ʊ", "w", "ʍ"}, "hoop, hope, w"},
        {OpenWide4, {"ˈa", "ˌɑ", "'a"}, "stress marks do not count"},
        {OpenWide1, {"\xFF", "Ж", "ʘ"}, "what is not known opens slightly"},
    };
    for (const auto& [mouth, sounds, why] : cases)
        for (const std::string_view sound : sounds)
            EXPECT_EQ(mouth, mouthFor(sound)) << sound << ": " << why;
    EXPECT_EQ(std::nullopt, mouthFor("(en)")) << "a change of language is no sound";
}

} // namespace
} // namespace brovin::character
