#include "stage/stage_world.h"

#include <gtest/gtest.h>

#include <string_view>

namespace brovin::character {
namespace {

/// Speaks, and lets the voice come to its end at once.
RequestHandle speak(StageWorld& world, std::string_view text) {
    const Asked asked = world.stage->speak(text);
    if (!asked)
        return nullptr;
    world.settle();
    if (world.voice.listener != nullptr)
        world.voice.end();
    world.settle();
    return *asked;
}

TEST(Speak, followsTheVoice) {
    ShownWorld world;
    const Asked asked = world.stage->speak(R"(Hello \Mrk=4\there)");
    EXPECT_EQ((Lines{"0 balloon Hello", "0 say Hello there", "0 start 3", "0 balloon shown"}), world.settle())
        << "in the present pose, which has a mouth; never empty, however late the voice begins";
    ASSERT_NE(nullptr, world.voice.listener);
    EXPECT_EQ(std::nullopt, world.wake) << "the voice calls";
    VoiceListener& listener = *world.voice.listener;
    world.pass(Milliseconds{100});
    listener.wordReached(0);
    for (const char* const sound : {"h", "ə", "(en)", ""})
        listener.soundReached(sound);
    listener.bookmarkReached(4);
    listener.wordReached(6);
    listener.wordReached(1); // a voice that reads a number word by word goes back
    EXPECT_EQ((Lines{"100 frame RestPose0+1", "100 frame RestPose0+4", "100 frame RestPose0",
                     "100 balloon Hello there", "100 bookmark 4"}),
              world.settle());
    listener.soundReached("a");
    world.voice.end();
    EXPECT_EQ((Lines{"100 frame RestPose0+4", "100 frame RestPose0", "100 end 3"}), world.settle());
    EXPECT_EQ("complete", outcomeOf(*asked));
    EXPECT_EQ((Lines{"2650 balloon gone", "2650 balloon hidden"}), world.pass(Milliseconds{5'000}));
}

TEST(Speak, takesAPoseThatHasAMouth) {
    const struct {
        std::string before; ///< animation played
        Lines told;
        std::string_view why;
    } cases[] = {
        {"Wave", {"balloon Hi", "say Hi"}, "the last picture has one, and is not led back from"},
        {"Read", {"frame ReadReturn0", "frame RestPose0", "balloon Hi", "say Hi"}, "led back"},
        {"Blink", {"frame RestPose0", "balloon Hi", "say Hi"}, "the speaking one"},
    };
    for (const auto& [before, told, why] : cases) {
        QuietWorld world;
        ASSERT_TRUE(world.stage->play(before));
        world.pass(Milliseconds{1'000});
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
    EXPECT_EQ((Lines{"shown", "frame Show0", "balloon Hi", "say Hi"}),
              untimed(world.pass(Milliseconds{500})));
    world.voice.listener->soundReached("a");
    EXPECT_TRUE(world.settle().empty()) << "no mouth to move";
}

TEST(Speak, waitsForASoundThatStillPlays) {
    TestCharacter character = usualCharacter();
    character.animation("Bang", {{.mouths = {Mouth::OpenWide1}, .sound = 1}}).state("Hiding", {"Bang"});
    QuietWorld world(character);
    world.sound.lengths[1] = Milliseconds{900};
    world.chance.draws = {0.99};
    world.stage->hide(Manner::Animated);
    world.stage->show(Manner::Fast);
    ASSERT_TRUE(world.stage->speak("Hi"));
    EXPECT_EQ("900 say Hi", world.pass(Milliseconds{2'000}).back()) << "the sound of hiding rings out";
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
        QuietWorld world;
        silence(world);
        world.chance.draws = {0.0, 0.0, 0.6, 0.999, 0.0, 0.5, 0.0, 0.5}; // mouth, and 80 to 120 ms, in turn
        const Asked asked = world.stage->speak(R"(Hello\Pau=50\ you)");
        EXPECT_EQ((Lines{"0 balloon Hello", "0 frame RestPose0+1", "80 frame RestPose0+4",
                         "200 frame RestPose0+1", "300 frame RestPose0", "450 balloon Hello you",
                         "450 frame RestPose0+1", "664 frame RestPose0"}),
                  world.pass(Milliseconds{735}))
            << why << ": the mouth is closed between words";
        EXPECT_EQ("in progress", outcomeOf(*asked)) << why;
        world.pass(Milliseconds{1});
        EXPECT_EQ("complete", outcomeOf(*asked)) << why;
    }
}

TEST(Speak, doesWithoutABalloonOrAVoiceOrBoth) {
    const struct {
        bool balloon;
        bool voice;
        bool available;
        bool refuses;
        Lines told;
        std::string_view outcome;
    } cases[] = {
        {false, true, true, false, {"say Hi"}, "in progress"},
        {false, true, true, true, {}, "complete"},
        {false, true, false, true, {}, "complete"},
        {true, false, true, false, {"balloon Hi", "frame RestPose0+1"}, "in progress"},
    };
    for (const auto& [balloon, voice, available, refuses, told, outcome] : cases) {
        TestCharacter character = usualCharacter();
        if (!balloon)
            character.data.balloon.reset();
        if (!voice) // it does not borrow one
            character.data.voice.reset();
        QuietWorld world(character);
        world.voice.isAvailable = available;
        world.voice.refuses = refuses;
        const Asked asked = world.stage->speak("Hi");
        EXPECT_EQ(told, untimed(world.settle())) << balloon << voice << available;
        EXPECT_EQ(outcome, outcomeOf(*asked)) << balloon << voice << available;
    }
}

TEST(Speak, isNotEndedByTheEndOfWhatWasStoppedBefore) {
    ShownWorld world;
    ASSERT_TRUE(world.stage->speak("One"));
    world.settle();
    world.voice.end();
    world.stage->stop();
    const Asked two = world.stage->speak("Two");
    world.settle();
    EXPECT_EQ("in progress", outcomeOf(*two));
}

TEST(Speak, doesNothingForAnEmptyText) {
    for (const std::string_view text : {"", "  \n", R"(\Rst\)"}) {
        QuietWorld world;
        ASSERT_TRUE(world.stage->play("Blink"));
        world.pass(Milliseconds{300});
        const Asked asked = world.stage->speak(text);
        EXPECT_TRUE(world.settle().empty()) << text;
        EXPECT_EQ("complete", outcomeOf(*asked)) << text;
    }
}

TEST(Speak, keepsTheBalloonWithoutAutoHideUntilTheNextStatement) {
    TestCharacter character = usualCharacter();
    character.data.balloon->autoHide = false;
    character.data.balloon->autoPace = false;
    QuietWorld world(character);
    world.stage->setIdleOn(false);
    speak(world, "Hello");
    EXPECT_TRUE(world.pass(std::chrono::hours{1}).empty());
    ASSERT_TRUE(world.stage->speak("Hello"));
    EXPECT_EQ((Lines{"balloon gone", "balloon Hello", "say Hello"}), untimed(world.settle()))
        << "opened again, though the text is the same";
    world.voice.end();
    world.stage->hide(Manner::Fast);
    EXPECT_EQ((Lines{"balloon gone", "frame nothing", "gone"}), untimed(world.settle()));
}

TEST(Speak, repeatsTheLastStatement) {
    ShownWorld world;
    const auto said = [&world](std::string_view text) {
        world.voice.runs.clear();
        EXPECT_EQ("complete", outcomeOf(speak(world, text))) << text;
        std::string words;
        for (const SpokenRun& run : world.voice.runs)
            words += run.text + (run.bookmarks.empty() ? "" : "!") + (run.style.volume == 9 ? "?" : "");
        return words;
    };
    EXPECT_EQ("", said(R"(\Lst\)")) << "nothing said yet";
    EXPECT_EQ("One!?", said(R"(\Vol=9\\Mrk=1\One)"));
    EXPECT_EQ("One?", said(R"(\Lst\)")) << "with its tags, but without bookmarks";
    EXPECT_EQ("One?", said(R"( \lst\ )")) << "a repetition is no statement";
    EXPECT_EQ(RequestError::RepeatWithOtherText, world.stage->speak(R"(\Lst\ again)").failure());

    ASSERT_TRUE(world.stage->speak("Two"));
    ASSERT_TRUE(world.stage->speak("Three"));
    world.settle();
    world.stage->stop();
    EXPECT_EQ("Two", said(R"(\Lst\)")) << "interrupted, but begun; the third never began";

    world.stage->hide(Manner::Fast);
    ASSERT_TRUE(world.stage->speak("Four"));
    world.stage->show(Manner::Fast);
    EXPECT_EQ("Two", said(R"(\Lst\)")) << "what failed has not been said";
}

} // namespace
} // namespace brovin::character
