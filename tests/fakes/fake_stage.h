#pragma once

#include "character/stage/balloon_view.h"
#include "character/stage/moment.h"
#include "character/stage/sound_output.h"
#include "character/stage/surface.h"
#include "character/stage/voice.h"
#include "platform/random.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The desktop around a character, in memory.
namespace brovin::fakes {

/// What a character does, in order and with its time: "250 frame Wave1". The test sets the time.
class StageLog {
public:
    character::Moment now;

    void add(const std::string& what) {
        lines_.push_back(std::to_string(now.time_since_epoch().count()) + " " + what);
    }

    /// Everything since the last call.
    [[nodiscard]] std::vector<std::string> take() { return std::exchange(lines_, {}); }

private:
    std::vector<std::string> lines_;
};

/// A balloon whose characters, that is bytes, are ten pixels wide. Writes down its lines: "balloon one /
/// two".
class FakeStageBalloon final : public character::BalloonView {
public:
    explicit FakeStageBalloon(StageLog& log) : log_(log) {}

    int screenLines = 20; ///< that half the screen holds
    std::vector<std::string> statements;

    [[nodiscard]] int textWidth(std::string_view text) const override {
        return 10 * static_cast<int>(text.size());
    }
    [[nodiscard]] int averageCharacterWidth() const override { return 10; }
    [[nodiscard]] int mostLines() const override { return screenLines; }
    void beginStatement(const std::string& text) override { statements.push_back(text); }
    void show(const character::BalloonPage& page) override {
        std::string text;
        for (const std::string& line : page.lines)
            text += (text.empty() ? "" : " / ") + line;
        log_.add("balloon " + text);
    }
    void hide() override { log_.add("balloon gone"); }

private:
    StageLog& log_;
};

/// Draws what the test has laid ready, then from a sequence that a seed determines, or 0 for ever without
/// one.
class FakeStageChance final : public platform::Random {
public:
    std::deque<double> draws;

    void seed(std::uint64_t seed) override {
        random_.seed(static_cast<std::mt19937::result_type>(seed));
        seeded_ = true;
    }

    [[nodiscard]] double next() override {
        if (draws.empty())
            return seeded_ ? static_cast<double>(random_()) / (1.0 + std::mt19937::max()) : 0.0;
        const double first = draws.front();
        draws.pop_front();
        return first;
    }

private:
    std::mt19937 random_;
    bool seeded_ = false;
};

/// Writes down which sounds are started; each takes as long as the test says, or cannot be played.
class FakeStageSound final : public character::SoundOutput {
public:
    explicit FakeStageSound(StageLog& log) : log_(log) {}

    std::map<std::uint32_t, character::Milliseconds> lengths;

    character::Milliseconds play(std::uint32_t sound) override {
        log_.add("sound " + std::to_string(sound));
        playing_ = true;
        const auto length = lengths.find(sound);
        return length == lengths.end() ? character::Milliseconds{0} : length->second;
    }
    void stop() override {
        if (playing_)
            log_.add("sound off");
        playing_ = false;
    }

private:
    StageLog& log_;
    bool playing_ = false;
};

/// Writes down pictures, by the names that the test gives to frames, with "+4" for mouth 4; "shown", "gone",
/// and places where the test asks for them.
class FakeStageSurface final : public character::Surface {
public:
    using NameOf = std::function<std::string(const character::Frame&)>;

    FakeStageSurface(StageLog& log, NameOf nameOf) : log_(log), nameOf_(std::move(nameOf)) {}

    bool logsPlaces = false;
    double enlarged = 1;
    character::Shown shown = character::Shown::No;
    character::Place place;
    std::optional<character::Place> mouse;
    std::optional<character::Place> below; ///< the middle of what it stands on

    [[nodiscard]] double scale() const override { return enlarged; }
    [[nodiscard]] std::optional<character::Place> pointer() const override { return mouse; }
    [[nodiscard]] std::optional<character::Place> ground() const override { return below; }
    void showFrame(const character::Frame& frame, const character::MouthOverlay* mouth) override {
        log_.add("frame " + nameOf_(frame) +
                 (mouth == nullptr ? "" : "+" + std::to_string(static_cast<int>(mouth->mouth))));
    }
    void setPlace(character::Place to) override {
        place = to;
        if (logsPlaces)
            log_.add("at " + std::to_string(to.x) + "," + std::to_string(to.y));
    }
    void setShown(character::Shown isShown) override {
        shown = isShown;
        log_.add(isShown == character::Shown::Yes ? "shown" : "gone");
    }

private:
    StageLog& log_;
    NameOf nameOf_;
};

/// Writes down what is to be said. The test plays the voice through the listener, which is null when nothing
/// is being said.
class FakeStageVoice final : public character::Voice {
public:
    explicit FakeStageVoice(StageLog& log) : log_(log) {}

    bool isAvailable = true;
    bool refuses = false;
    std::vector<character::SpokenRun> runs; ///< of the last statement
    character::VoiceListener* listener = nullptr;

    [[nodiscard]] bool available() const override { return isAvailable; }
    [[nodiscard]] bool say(const std::vector<character::SpokenRun>& statement,
                           character::VoiceListener& hears) override {
        if (refuses)
            return false;
        runs = statement;
        listener = &hears;
        std::string text;
        for (const character::SpokenRun& run : runs)
            text += run.text;
        log_.add("say " + text);
        return true;
    }
    void silence() override {
        log_.add("silence");
        listener = nullptr;
    }

    /// All is said.
    void end() {
        character::VoiceListener* const hears = listener;
        listener = nullptr;
        hears->speechEnded();
    }

private:
    StageLog& log_;
};

} // namespace brovin::fakes
