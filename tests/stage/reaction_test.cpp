// How soon the characters that ship answer, whatever they are doing. Prints the table of docs/characters.md.

#include "character/acs_reader.h"
#include "character/stage/frame_steps.h"
#include "character/stage/stage.h"
#include "fakes/fake_stage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <set>

namespace brovin::character {
namespace {

const char* const kAsked = std::getenv("REACTION_DRAWS");
const int kDraws = kAsked != nullptr ? std::atoi(kAsked) : 25;
constexpr int kLongestPlay = 20'000; ///< ms into an animation, at most
constexpr int kFirstReaction = 400;  ///< ms
constexpr int kFirstWords = 1'200;
constexpr int kAppearing = 1'000;

std::shared_ptr<const CharacterData> shipped(const std::string& name) {
    std::ifstream file(BROVIN_CHARACTERS "/" + name + ".acs", std::ios::binary);
    auto read = readCharacter(SharedBytes(
        std::vector<std::uint8_t>{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}));
    EXPECT_TRUE(read) << name;
    return std::make_shared<const CharacterData>(read ? std::move(*read) : CharacterData{});
}

/// Where a wave file says how many bytes make a second.
constexpr std::size_t kByteRate = 28;

Milliseconds lengthOf(std::span<const std::uint8_t> wave) {
    if (wave.size() < kByteRate + 4)
        return Milliseconds{0};
    const int rate = wave[kByteRate] | wave[kByteRate + 1] << 8 | wave[kByteRate + 2] << 16;
    return Milliseconds{1'000 * static_cast<long>(wave.size()) / std::max(rate, 1)};
}

/// Until some time after its end; a loop is let go on for a while.
double playingTime(const Animation& animation) {
    Milliseconds time{500};
    for (const Frame& frame : animation.frames)
        time += frame.duration;
    const auto loops = [](const Frame& frame) { return !frame.branches.empty(); };
    return std::ranges::any_of(animation.frames, loops) ? kLongestPlay : static_cast<double>(time.count());
}

struct Answer {
    long reaction; ///< ms to the first other picture
    long words;    ///< ms to the balloon
};

/// One character, played in memory and as fast as it goes.
struct Player {
    explicit Player(std::shared_ptr<const CharacterData> character) : data(std::move(character)) {
        for (std::uint32_t i = 0; i < data->sounds.size(); ++i)
            sound.lengths[i] = lengthOf(data->sounds[i].wave.view());
        voice.isAvailable = false; // the balloon opens in the same moment
    }
    std::vector<std::string> pass(Milliseconds time) {
        const Moment end = log.now + time;
        while (true) {
            while (std::exchange(asked, false) || (wake && *wake <= log.now)) {
                wake = stage.advance(log.now);
                ++calls;
                while (stage.takeEvent())
                    ;
            }
            if (!wake || *wake > end)
                break;
            log.now = *wake;
        }
        log.now = end;
        return log.take();
    }
    /// How long it takes from now on.
    Answer answer() {
        const Moment begin = log.now;
        const auto before = picture;
        Answer answer{-1, -1};
        while (answer.words < 0 && log.now - begin < Milliseconds{30'000}) {
            wake = stage.advance(log.now);
            asked = false;
            const long passed = static_cast<long>((log.now - begin).count());
            if (answer.reaction < 0 && picture != before)
                answer.reaction = passed;
            while (const auto event = stage.takeEvent())
                if (std::holds_alternative<event::BalloonShown>(*event))
                    answer.words = passed;
            if (answer.words < 0)
                log.now = std::max(wake.value_or(log.now + Milliseconds{1}), log.now);
        }
        if (answer.reaction < 0)
            answer.reaction = answer.words;
        return answer;
    }

    std::shared_ptr<const CharacterData> data;
    fakes::StageLog log;
    std::vector<FrameImage> picture;
    fakes::FakeStageChance chance;
    fakes::FakeStageSurface surface{log, [this](const Frame& frame) {
                                        picture = frame.images;
                                        if (shows)
                                            shows(frame);
                                        return std::string();
                                    }};
    fakes::FakeStageSound sound{log};
    fakes::FakeStageVoice voice{log};
    fakes::FakeStageBalloon balloon{log};
    std::function<void(const Frame&)> shows;
    int calls = 0;
    bool asked = false;
    Wake wake;
    Stage stage{data,
                {surface, balloon, sound, voice, chance, [this] { asked = true; },
                 [] {
                     return TimeOfYear{1, 15};
                 }}};
};

struct Range {
    std::vector<long> values;

    [[nodiscard]] long at(double share) {
        std::sort(values.begin(), values.end());
        return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
    }
};

class Reaction : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Shipped, Reaction, testing::Values("peedy", "merlin", "genie", "robby"),
                         [](const auto& name) { return std::string(name.param); });

TEST_P(Reaction, comesAtOnceWhateverTheCharacterDoes) {
    const auto data = shipped(GetParam());
    Range allWords;
    std::pair<long, std::string> slowest;
    for (const Animation& animation : data->animations) {
        Range reactions;
        Range words;
        for (int draw = 0; draw < kDraws; ++draw) {
            Player player(data);
            player.chance.seed(static_cast<std::uint32_t>(draw));
            player.stage.show(Manner::Fast);
            ASSERT_TRUE(player.stage.play(animation.name));
            player.pass(Milliseconds{std::lround(player.chance.next() * playingTime(animation))});
            player.stage.stop();
            ASSERT_TRUE(player.stage.speak("Good evening."));
            const Answer answer = player.answer();
            reactions.values.push_back(answer.reaction);
            words.values.push_back(answer.words);
        }
        allWords.values.insert(allWords.values.end(), words.values.begin(), words.values.end());
        slowest = std::max(slowest, {words.at(1), animation.name});
        EXPECT_LE(reactions.at(1), kFirstReaction) << animation.name;
        EXPECT_TRUE(words.at(0) >= 0 && words.at(1) <= kFirstWords) << animation.name << ' ' << words.at(1);
    }
    std::printf("| %s | %ld | %ld | %ld (%s) |\n", GetParam(), allWords.at(0.5), allWords.at(0.99),
                slowest.first, slowest.second.c_str());
}

TEST_P(Reaction, bringsAMessageSoonFromHiding) {
    Range words;
    for (int draw = 0; draw < kDraws; ++draw) {
        Player player(shipped(GetParam()));
        player.chance.seed(static_cast<std::uint32_t>(draw));
        player.stage.show(Manner::Animated);
        ASSERT_TRUE(player.stage.speak("Good evening."));
        words.values.push_back(player.answer().words);
    }
    std::printf("| %s, from hiding | %ld | %ld | %ld |\n", GetParam(), words.at(0.5), words.at(0.99),
                words.at(1));
    EXPECT_TRUE(words.at(0) >= 0 && words.at(1) <= kAppearing) << words.at(1);
}

/// Six hours that nobody asks anything of it, in a winter's afternoon.
TEST_P(Reaction, isQuietAndNeverTheSameAtRest) {
    const auto data = shipped(GetParam());
    std::map<const Frame*, const Animation*> animationOf;
    for (const Animation& animation : data->animations)
        for (const Frame& frame : animation.frames)
            animationOf[&frame] = &animation;
    Player player(data);
    player.chance.seed(3);
    const Animation* last = nullptr;
    std::map<std::string, int> begun;
    int repeats = 0;
    player.shows = [&](const Frame& frame) {
        const auto found = animationOf.find(&frame);
        if (found == animationOf.end() || &frame != &found->second->frames.front())
            return;
        ++begun[found->second->name];
        if (found->second->name == "Breathe" || found->second->name == "Blink")
            return;
        repeats += found->second == last ? 1 : 0;
        last = found->second;
    };
    player.stage.show(Manner::Animated);
    player.pass(Milliseconds{60'000}); // its entrance may be loud
    std::vector<long> sounds;
    for (int hour = 0; hour < 6; ++hour)
        for (const std::string& line : player.pass(Milliseconds{3'600'000}))
            if (line.find(" sound ") != std::string::npos && !line.ends_with("off"))
                sounds.push_back(std::stol(line));
    int most = 0;
    for (std::size_t i = 0; i < sounds.size(); ++i)
        most = std::max(most, static_cast<int>(std::count_if(sounds.begin(), sounds.end(), [&](long at) {
                            return at >= sounds[i] && at < sounds[i] + 60'000;
                        })));
    std::printf("| %s, at rest | %.2f sounds a minute | %d at most | %d repeats | %.1f calls a second | %d "
                "breaths | %d "
                "winters |\n",
                GetParam(), static_cast<double>(sounds.size()) / 360, most, repeats, player.calls / 21'600.0,
                begun["Breathe"], begun["IdleWinter"]);
    EXPECT_LE(most, 2);
    EXPECT_EQ(0, repeats);
    EXPECT_GT(begun["Breathe"], 20) << "it sleeps most of the time";
    EXPECT_TRUE(begun["IdleWinter"] > 0 && begun["IdleWinter"] <= 12) << begun["IdleWinter"];
}

/// Each animation is played to its end, and stopped somewhere while nothing waits: a wake-up, a landing or
/// the end of a search that was drawn and is never reached would be missing.
TEST_P(Reaction, showsAllThatWasDrawn) {
    constexpr int kStops = 12;
    const auto data = shipped(GetParam());
    std::set<const Frame*> seen;
    Player player(data);
    player.chance.seed(5);
    player.shows = [&](const Frame& frame) { seen.insert(&frame); };
    player.stage.setIdleOn(false);
    for (const Animation& animation : data->animations)
        for (int stop = 0; stop <= kStops; ++stop) {
            player.stage.show(Manner::Fast);
            ASSERT_TRUE(player.stage.play(animation.name));
            const double time = playingTime(animation) * (stop == 0 ? 1 : player.chance.next());
            player.pass(Milliseconds{std::lround(time)});
            player.stage.stop();
            player.pass(Milliseconds{10'000});
        }
    const auto expectAllSeen = [&](const Animation& animation, std::string_view when) {
        for (std::size_t i = 0; i < animation.frames.size(); ++i)
            EXPECT_TRUE(!isShown(animation.frames[i]) || seen.contains(&animation.frames[i]))
                << animation.name << ' ' << i << ' ' << when;
    };
    for (const Animation& animation : data->animations)
        expectAllSeen(animation, "stopped or not");
    seen.clear();
    for (const Place place : {Place{500, 0}, Place{500, 500}, Place{0, 500}, Place{0, 0}}) {
        player.stage.moveTo(place, Milliseconds{1'000});
        ASSERT_TRUE(player.stage.play("RestPose"));
        player.pass(Milliseconds{5'000});
    }
    for (const Animation& animation : data->animations)
        if (animation.name.starts_with("Move"))
            expectAllSeen(animation, "gliding, and landing for what comes next");
}

} // namespace
} // namespace brovin::character
