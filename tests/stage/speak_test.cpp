#include "stage/stage_world.h"

#include <gtest/gtest.h>

#include <string_view>

namespace brovin::character {
namespace {

constexpr Milliseconds kLong{20'000};

/// Speaks, and lets the voice come to its end at once.
RequestHandle speak(StageWorld& world, std::string_view text) {
    const Asked asked = world.stage->speak(text);
    if (!asked)
        return nullptr;
    static_cast<void>(world.settle());
    if (world.voice.listener != nullptr)
        world.voice.end();
    static_cast<void>(world.settle());
    return *asked;
}

TEST(Speak, followsTheVoice) {
    StageWorld world;
    world.appear();
    const Asked asked = world.stage->speak(R"(Hello \Mrk=4\there)");
    EXPECT_EQ((Lines{"0 balloon ", "0 say Hello there", "0 start 3", "0 balloon shown"}), world.settle())
        << "in the present pose, which has a mouth";
    ASSERT_NE(nullptr, world.voice.listener);
    EXPECT_EQ(std::nullopt, world.wake) << "the voice calls";
    VoiceListener& listener = *world.voice.listener;
    static_cast<void>(world.pass(Milliseconds{100}));
    listener.wordReached(0);
    listener.soundReached("h");
    listener.soundReached("ə");
    listener.soundReached("(en)");
    listener.soundReached("");
    listener.bookmarkReached(4);
    listener.wordReached(6);
    listener.wordReached(1); // a voice that reads a number word by word goes back
    EXPECT_EQ((Lines{"100 balloon Hello", "100 frame RestPose0+1", "100 frame RestPose0+4",
                     "100 frame RestPose0", "100 balloon Hello there", "100 bookmark 4"}),
              world.settle());
    listener.soundReached("a");
    world.voice.end();
    EXPECT_EQ((Lines{"100 frame RestPose0+4", "100 frame RestPose0", "100 end 3"}), world.settle());
    EXPECT_EQ("complete", outcomeOf(*asked));
    EXPECT_EQ((Lines{"2650 balloon gone", "2650 balloon hidden"}), world.pass(Milliseconds{5'000}))
        << "2 s and 50 ms a character";
}

TEST(Speak, takesAPoseThatHasAMouth) {
    const struct {
        Lines before; ///< animations played
        Lines told;
        std::string_view why;
    } cases[] = {
        {{"Wave"}, {"balloon ", "say Hi"}, "the last picture has one, and is not led back from"},
        {{"Read"},
         {"frame ReadReturn0", "frame RestPose0", "balloon ", "say Hi"},
         "led back, then the speaking one"},
        {{"Blink"}, {"frame RestPose0", "balloon ", "say Hi"}, "the speaking one"},
    };
    for (const auto& [before, told, why] : cases) {
        StageWorld world;
        world.logsEvents = false;
        world.appear();
        for (const std::string& name : before)
            ASSERT_TRUE(world.stage->play(name));
        static_cast<void>(world.pass(Milliseconds{1'000}));
        ASSERT_TRUE(world.stage->speak("Hi"));
        EXPECT_EQ(told, untimed(world.pass(Milliseconds{500}))) << why;
    }
}

TEST(Speak, staysInThePresentPictureWhereThereIsNoSpeakingOne) {
    TestCharacter character;
    character.animation("Back", {{}}).animation("Show", {{}}).ledBackBy("Back");
    StageWorld world(character);
    world.logsEvents = false;
    world.stage->show(Manner::Animated);
    ASSERT_TRUE(world.stage->speak("Hi"));
    EXPECT_EQ((Lines{"shown", "frame Show0", "balloon ", "say Hi"}), untimed(world.pass(Milliseconds{500})));
    world.voice.listener->soundReached("a");
    EXPECT_TRUE(world.settle().empty()) << "no mouth to move";
}

TEST(Speak, waitsForASoundThatStillPlays) {
    TestCharacter character = usualCharacter();
    character.animation("Bang", {{.mouths = {Mouth::OpenWide1}, .sound = 1}});
    character.state("Hiding", {"Bang"});
    StageWorld world(character);
    world.sound.lengths[1] = Milliseconds{900};
    world.logsEvents = false;
    world.appear();
    world.chance.draws = {0.99};
    world.stage->hide(Manner::Animated);
    world.stage->show(Manner::Fast);
    ASSERT_TRUE(world.stage->speak("Hi"));
    const Lines lines = world.pass(kLong);
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ("900 say Hi", lines.back()) << "the sound of hiding rings out";
}

TEST(Speak, goesAtReadingPaceWithoutAVoice) {
    const struct {
        std::string_view why;
        void (*silence)(StageWorld&);
    } cases[] = {
        {"no voice is installed", [](StageWorld& world) { world.voice.isAvailable = false; }},
        {"the sound device is busy", [](StageWorld& world) { world.voice.refuses = true; }},
    };
    for (const auto& [why, silence] : cases) {
        StageWorld world;
        silence(world);
        world.logsEvents = false;
        world.appear();
        world.chance.draws = {0.0, 0.5, 0.6, 0.5, 0.0, 0.5}; // mouth and time in turn
        const Asked asked = world.stage->speak(R"(Hello\Pau=50\ you)");
        Lines lines = world.pass(Milliseconds{250});
        EXPECT_EQ((Lines{"0 balloon ", "0 balloon Hello", "0 frame RestPose0+1", "100 frame RestPose0+4",
                         "200 frame RestPose0+1"}),
                  lines)
            << why;
        lines = world.pass(Milliseconds{200});
        EXPECT_EQ((Lines{"300 frame RestPose0", "450 balloon Hello you", "450 frame RestPose0+1"}), lines)
            << why << ": the mouth is closed between words";
        static_cast<void>(world.pass(Milliseconds{285}));
        EXPECT_EQ("in progress", outcomeOf(*asked)) << why;
        static_cast<void>(world.pass(Milliseconds{1}));
        EXPECT_EQ("complete", outcomeOf(*asked)) << why;
    }
}

TEST(Speak, changesTheMouthEvery80To120Milliseconds) {
    StageWorld world;
    world.voice.isAvailable = false;
    world.logsEvents = false;
    world.appear();
    world.chance.seed(5);
    ASSERT_TRUE(world.stage->speak("\u00E4" + std::string(400, 'x'))); // one word, ten seconds
    static_cast<void>(world.pass(kLong));
    EXPECT_GE(world.calls, 7'500 / 120);
    EXPECT_LE(world.calls, 7'500 / 80 + 10);
}

TEST(Speak, doesWithoutABalloonOrWithNeither) {
    TestCharacter mute = usualCharacter();
    mute.data.balloon.reset();
    StageWorld heard(mute);
    heard.appear();
    ASSERT_TRUE(heard.stage->speak("Hi"));
    EXPECT_EQ((Lines{"say Hi"}), untimed(heard.settle())) << "voice only";

    for (const bool available : {false, true}) {
        StageWorld neither(mute);
        neither.voice.isAvailable = available;
        neither.voice.refuses = true;
        neither.logsEvents = false;
        neither.appear();
        const Asked asked = neither.stage->speak("Hi");
        EXPECT_EQ(Lines{}, untimed(neither.settle())) << available;
        EXPECT_EQ("complete", outcomeOf(*asked)) << available;
    }

    TestCharacter voiceless = usualCharacter();
    voiceless.data.voice.reset();
    StageWorld shown(voiceless);
    shown.logsEvents = false;
    shown.appear();
    ASSERT_TRUE(shown.stage->speak("Hi"));
    EXPECT_EQ((Lines{"balloon ", "balloon Hi"}), [&] {
        Lines lines = untimed(shown.settle());
        std::erase_if(lines, [](const std::string& line) { return line.starts_with("frame"); });
        return lines;
    }()) << "a character without a voice does not borrow one";
}

TEST(Speak, isNotEndedByTheEndOfWhatWasStoppedBefore) {
    StageWorld world;
    world.appear();
    ASSERT_TRUE(world.stage->speak("One"));
    static_cast<void>(world.settle());
    world.voice.end();
    world.stage->stop();
    const Asked two = world.stage->speak("Two");
    static_cast<void>(world.settle());
    EXPECT_EQ("in progress", outcomeOf(*two));
}

TEST(Speak, doesNothingForAnEmptyText) {
    for (const std::string_view text : {"", "  \n", R"(\Rst\)"}) {
        StageWorld world;
        world.logsEvents = false;
        world.appear();
        ASSERT_TRUE(world.stage->play("Blink"));
        static_cast<void>(world.pass(Milliseconds{300}));
        const Asked asked = world.stage->speak(text);
        EXPECT_TRUE(world.settle().empty()) << text;
        EXPECT_EQ("complete", outcomeOf(*asked)) << text;
    }
}

TEST(Speak, keepsTheBalloonWithoutAutoHideUntilTheNextStatement) {
    TestCharacter character = usualCharacter();
    character.data.balloon->autoHide = false;
    StageWorld world(character);
    world.logsEvents = false;
    world.stage->setIdleOn(false);
    world.appear();
    speak(world, "Hello");
    EXPECT_TRUE(world.pass(std::chrono::hours{1}).empty());
    ASSERT_TRUE(world.stage->speak("you"));
    EXPECT_EQ((Lines{"balloon gone", "balloon ", "say you"}), untimed(world.settle()));
    world.voice.end();
    static_cast<void>(world.settle());
    world.stage->hide(Manner::Fast);
    EXPECT_EQ((Lines{"balloon gone", "frame nothing", "gone"}), untimed(world.settle()));
}

TEST(Speak, opensTheBalloonAgainForTheSameText) {
    TestCharacter character = usualCharacter();
    character.data.balloon->autoPace = false;
    StageWorld world(character);
    world.logsEvents = false;
    world.appear();
    speak(world, "Hello");
    ASSERT_TRUE(world.stage->speak("Hello"));
    EXPECT_EQ((Lines{"balloon gone", "balloon Hello", "say Hello"}), untimed(world.settle()));
}

TEST(Speak, repeatsTheLastStatement) {
    StageWorld world;
    world.appear();
    const auto said = [&world](std::string_view text) {
        world.voice.runs.clear();
        const RequestHandle request = speak(world, text);
        EXPECT_EQ("complete", outcomeOf(request)) << text;
        std::string words;
        for (const SpokenRun& run : world.voice.runs)
            words += run.text + (run.bookmarks.empty() ? "" : "!") + (run.style.volume == 9 ? "?" : "");
        return words;
    };
    EXPECT_EQ("", said(R"(\Lst\)")) << "nothing said yet";
    EXPECT_EQ("One!?", said(R"(\Vol=9\\Mrk=1\One)"));
    EXPECT_EQ("One?", said(R"(\Lst\)")) << "with its tags, but without bookmarks";
    EXPECT_EQ("One?", said(R"( \lst\ )")) << "a repetition is no statement";

    const Asked mixed = world.stage->speak(R"(\Lst\ again)");
    ASSERT_FALSE(mixed);
    EXPECT_EQ(RequestError::RepeatWithOtherText, mixed.error());

    ASSERT_TRUE(world.stage->speak("Two"));
    ASSERT_TRUE(world.stage->speak("Three"));
    static_cast<void>(world.settle());
    world.stage->stop();
    EXPECT_EQ("Two", said(R"(\Lst\)")) << "interrupted, but begun; the third never began";

    world.stage->hide(Manner::Fast);
    ASSERT_TRUE(world.stage->speak("Four"));
    world.stage->show(Manner::Fast);
    EXPECT_EQ("Two", said(R"(\Lst\)")) << "what failed has not been said";
}

TEST(Speak, takesAMegabyteInItsStride) {
    StageWorld world;
    world.voice.isAvailable = false;
    world.logsEvents = false;
    world.appear();
    std::string text;
    while (text.size() < 1'000'000)
        text += R"(word \Emp\word\Mrk=1\ )";
    const Asked asked = world.stage->speak(text);
    static_cast<void>(world.pass(kLong));
    EXPECT_EQ("in progress", outcomeOf(*asked));
    world.stage->stop();
    EXPECT_EQ("interrupted 8004210C", outcomeOf(*asked));
}

} // namespace
} // namespace brovin::character
