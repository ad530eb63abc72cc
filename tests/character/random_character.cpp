#include "random_character.h"

#include "character/indexed_image.h"

#include <array>
#include <random>
#include <string>
#include <string_view>
#include <utility>

namespace brovin::character {
namespace {

class Maker {
public:
    explicit Maker(std::uint32_t seed) : random_(seed) {}

    CharacterData make() {
        CharacterData made;
        made.guid = guid();
        made.formatVersion.minor = word();
        made.animationSetVersion = {word(), word()};
        made.standardAnimations = chance(50);
        for (std::size_t i = count(5); i > 0; --i)
            made.info.push_back({word(), text(100), text(300), text(300)});
        made.width = number<std::uint16_t>(1, 1024);
        made.height = number<std::uint16_t>(1, 1024);
        for (auto i = number<int>(1, 256); i > 0; --i)
            made.palette.push_back(colour());
        made.transparentIndex = byte(0, 255);
        if (chance(70))
            made.voice = voice();
        if (chance(70))
            made.balloon = balloon();
        if (chance(50))
            made.trayIcon = TrayIcon{SharedBytes(noise(count(300))), SharedBytes(noise(count(300)))};
        for (std::size_t i = count(10); i > 0; --i)
            made.images.push_back(image());
        for (std::size_t i = count(4); i > 0; --i)
            made.sounds.push_back(chance(20) ? Sound() : sound());
        addAnimations(made);
        return made;
    }

    std::vector<std::uint8_t> pixels(std::size_t size) {
        std::vector<std::uint8_t> pixels;
        while (pixels.size() < size) {
            const std::size_t length = 1 + below(chance(10) ? 5000 : 40);
            const std::size_t back = 1 + below(chance(50) ? 64 : 6000);
            const auto shade = static_cast<std::uint8_t>(below(256));
            const unsigned kind = below(3);
            for (std::size_t i = 0; i < length; ++i) {
                const bool repeats = kind == 0 && back <= pixels.size();
                const std::uint8_t other = kind == 1 && length < 100 ? byte(0, 255) : shade;
                pixels.push_back(repeats ? pixels[pixels.size() - back] : other);
            }
        }
        pixels.resize(size);
        return pixels;
    }

private:
    std::uint32_t below(std::size_t bound) { return static_cast<std::uint32_t>(random_() % bound); }
    bool chance(unsigned percent) { return below(100) < percent; }
    std::size_t count(std::size_t most) { return chance(25) ? 0 : below(most + 1); }

    template <class T>
    T number(std::int32_t lowest, std::int32_t highest) {
        if (chance(20))
            return static_cast<T>(chance(50) ? lowest : highest);
        return static_cast<T>(
            lowest + static_cast<std::int32_t>(random_() % static_cast<std::size_t>(highest - lowest + 1)));
    }
    std::uint8_t byte(int lowest, int highest) { return number<std::uint8_t>(lowest, highest); }
    std::uint16_t word() { return number<std::uint16_t>(0, 65535); }
    std::int16_t offset() { return number<std::int16_t>(-32768, 32767); }
    template <class List>
    std::uint16_t indexOf(const List& list) {
        return static_cast<std::uint16_t>(below(list.size()));
    }

    std::string text(std::size_t mostCharacters) {
        constexpr std::array<std::string_view, 10> kPieces{
            "a", "Z", "_1", " ", "\u00DF", "\u0416", "\u20AC", "\U0001F600", "\uFFFD", "\u0001"};
        std::string text;
        for (std::size_t left = count(mostCharacters); left > 0; --left)
            text.append(kPieces[below(kPieces.size())]);
        return text;
    }

    std::vector<std::uint8_t> noise(std::size_t size) {
        std::vector<std::uint8_t> noise(size);
        for (std::uint8_t& each : noise)
            each = static_cast<std::uint8_t>(below(256));
        return noise;
    }

    Guid guid() {
        Guid guid{static_cast<std::uint32_t>(random_()), word(), word(), {}};
        for (std::uint8_t& each : guid.rest)
            each = byte(0, 255);
        return guid;
    }

    /// Never pure, and so none of the standard colours.
    Colour colour() { return {byte(0, 254), byte(0, 254), byte(1, 127)}; }

    VoiceSettings voice() {
        VoiceSettings voice{guid(), chance(50) ? guid() : Guid(), {}, {}, {}};
        if (chance(70))
            voice.wordsPerMinute = number<std::uint16_t>(50, 400);
        if (chance(70))
            voice.pitchHertz = number<std::uint16_t>(40, 500);
        if (chance(50))
            voice.traits = VoiceTraits{word(), text(20), static_cast<Gender>(below(3)), word(), text(20)};
        return voice;
    }

    BalloonSettings balloon() {
        return {byte(1, 128), byte(8, 255), colour(),     colour(),
                colour(),     text(30),     byte(1, 200), number<std::uint16_t>(0, 1000),
                chance(50),   chance(50),   chance(50),   chance(50)};
    }

    EncodedImage image() {
        if (chance(10))
            return {};
        const auto width = number<std::uint16_t>(1, 60);
        const auto height = number<std::uint16_t>(1, 60);
        if (chance(10)) // damaged inside, which only decoding can tell
            return {width, height, ImageCoding::Packed, SharedBytes(noise(count(50)))};
        return encodeImage({width, height, pixels(std::size_t{width} * height)});
    }

    Sound sound() {
        std::vector<std::uint8_t> wave{'R', 'I', 'F', 'F', 0, 0, 0, 0, 'W', 'A', 'V', 'E'};
        const std::vector<std::uint8_t> rest = noise(count(100));
        wave.insert(wave.end(), rest.begin(), rest.end());
        return {SharedBytes(std::move(wave))};
    }

    Frame frame(const CharacterData& of, std::size_t frames) {
        const auto anyFrame = [&] { return static_cast<std::uint16_t>(below(frames)); };
        const bool drawn = !of.images.empty();
        Frame frame;
        for (std::size_t i = drawn ? count(4) : 0; i > 0; --i)
            frame.images.push_back({indexOf(of.images), offset(), offset()});
        for (std::size_t i = count(3); i > 0; --i)
            frame.branches.push_back({anyFrame(), word()});
        for (std::size_t i = drawn ? count(8) : 0; i > 0; --i)
            frame.mouths.push_back(
                {static_cast<Mouth>(below(kMouthCount)), chance(50), indexOf(of.images), offset(), offset()});
        frame.duration = FrameDuration(number<int>(0, 65535));
        if (!of.sounds.empty() && chance(20))
            frame.sound = indexOf(of.sounds);
        if (chance(30))
            frame.exitFrame = anyFrame();
        return frame;
    }

    void addAnimations(CharacterData& to) {
        const std::size_t animations = count(20);
        for (std::size_t i = 0; i < animations; ++i) {
            Animation& added = to.animations.emplace_back();
            added.name = text(40) + std::to_string(i) + "#"; // so that no two are the same
            added.transition = static_cast<Transition>(below(3));
            if (added.transition == Transition::ReturnAnimation)
                added.returnAnimation = below(animations);
            const std::size_t frames = count(20);
            for (std::size_t j = 0; j < frames; ++j)
                added.frames.push_back(frame(to, frames));
        }
        for (std::size_t i = count(20); i > 0; --i) {
            State& state = to.states.emplace_back();
            state.name = text(20);
            for (std::size_t j = animations == 0 ? 0 : count(5); j > 0; --j)
                state.animations.push_back(below(animations));
        }
    }

    std::mt19937 random_;
};

} // namespace

CharacterData randomCharacter(std::uint32_t seed) {
    return Maker(seed).make();
}

std::vector<std::uint8_t> randomPixels(std::uint32_t seed, std::size_t count) {
    return Maker(seed).pixels(count);
}

} // namespace brovin::character
