#include "voice/language_ids.h"
#include "voice/mode_ids.h"
#include "voice/timbre.h"
#include "voice/voice_choice.h"

#include <gtest/gtest.h>

#include <string>

namespace brovin::voice {
namespace {

character::CharacterData characterOf(character::Gender gender, std::uint16_t hertz, std::uint32_t guid) {
    character::CharacterData data;
    data.guid.first = guid;
    data.voice.emplace();
    data.voice->traits = character::VoiceTraits{0x0409, "", gender, 30, ""};
    if (hertz > 0)
        data.voice->pitchHertz = hertz;
    return data;
}

TEST(VoiceChoice, followsTheLanguageWithItsCountry) {
    VoiceChoice voice{character::CharacterData{}, "en-us"};
    const std::string variant = "+" + voice.timbre().variant;
    constexpr std::pair<long, const char*> kCases[] = {
        {0x0401, "sem/ar"}, {0x0404, "sit/cmn"},    {0x0409, "gmw/en-US"}, {0x0809, "gmw/en"},
        {0x040C, "roa/fr"}, {0x080C, "roa/fr-BE"},  {0x0411, "jpx/ja"},    {0x0412, "ko"},
        {0x0414, "gmq/nb"}, {0x0416, "roa/pt-BR"},  {0x0816, "roa/pt"},    {0x041A, "zls/hr"},
        {0x0C1A, "zls/sr"}, {0x080A, "roa/es-419"}, {0x0C07, "gmw/de"}, // Austria has no voice of its own
        {0x0C09, "gmw/en"},                                             // nor has Australia
    };
    for (const auto& [id, name] : kCases) {
        EXPECT_TRUE(voice.setLanguageId(id)) << id;
        EXPECT_EQ(voice.voiceName(), name + variant) << id;
    }
    for (const long id : {0L, -1L, 0x10409L, 0x03FFL}) {
        EXPECT_FALSE(voice.setLanguageId(id)) << id;
        EXPECT_EQ(voice.voiceName(), "gmw/en" + variant) << "the language before stays";
    }
}

TEST(VoiceChoice, takesAModeOverTheLanguage) {
    VoiceChoice voice{character::CharacterData{}, "en-us"};
    ASSERT_TRUE(voice.setLanguageId(0x0415));
    const std::string own = voice.voiceName();
    constexpr std::pair<const char*, const char*> kCases[] = {
        // null: refused
        {"{CA141FD0-AC7F-11D1-97A3-006008273000}", "gmw/en-US+m1"},
        {"{ca141fd0-ac7f-11d1-97a3-006008273009}", "gmw/en-US+f2"},
        {"{CA141FD0-AC7F-11D1-97A3-00600827300A}", nullptr},
        {"{227A0E40-A92A-11d1-B17B-0020AFED142E}", "gmw/en+f1"},
        {"{3A1FB761-A92B-11d1-B17B-0020AFED142E}", "gmw/de+m1"},
        {"8AA08CA0-A1AE-11d3-9BC5-00A0C967A2D1", "roa/pt-BR+f1"},
        {"{8AA08CA0-A1AE-11d1-9BC5-00A0C967A2D1}", nullptr},
        {"English (America)", "gmw/en-US"},
        {"german+F3", "gmw/de+f3"},
        {"en-gb", "gmw/en"},
        {"zlw/pl+whisper", "zlw/pl+whisper"},
        {"de+nobody", nullptr},
        {"{CA141FD0-AC7F-11D1-97A3}", nullptr},
        {"../../etc/passwd", nullptr},
        {"+f1", nullptr},
    };
    std::string last = own;
    for (const auto& [id, name] : kCases) {
        EXPECT_EQ(voice.setTtsModeId(id), name != nullptr) << id;
        last = name != nullptr ? name : last;
        EXPECT_EQ(voice.voiceName(), last) << id;
    }
    EXPECT_TRUE(voice.setTtsModeId(""));
    EXPECT_EQ(voice.voiceName(), own);
}

TEST(VoiceChoice, givesEachCharacterAVoiceOfItsOwn) {
    using character::Gender;
    const Timbre wizard = ownTimbre(characterOf(Gender::Male, 0, 1));
    EXPECT_EQ(wizard, ownTimbre(characterOf(Gender::Male, 0, 1)));
    EXPECT_NE(wizard, ownTimbre(characterOf(Gender::Male, 0, 2)));
    EXPECT_EQ(wizard.variant.front(), 'm');
    EXPECT_EQ(ownTimbre(characterOf(Gender::Female, 0, 1)).variant.front(), 'f');

    const Timbre bird = ownTimbre(characterOf(Gender::Male, 260, 3));
    EXPECT_EQ(bird.variant.front(), 'f') << "no man's voice is as high";
    EXPECT_FALSE(bird.female);

    character::CharacterData child = characterOf(Gender::Female, 0, 1);
    child.voice->traits->ageYears = 8;
    EXPECT_GT(ownTimbre(child).ownHertz, ownTimbre(characterOf(Gender::Female, 0, 1)).ownHertz);
}

} // namespace
} // namespace brovin::voice
