#pragma once

#include "character/character_data.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace brovin::character {

/// Makes characters up: every kind of record, with few or many items, and values from the ends of their
/// ranges more often than chance would have it. The same seed makes the same character.
class RandomCharacter {
public:
    explicit RandomCharacter(std::uint32_t seed) : random_(seed) {}

    [[nodiscard]] CharacterData make();

    /// Bytes such as images have: runs, repetitions and noise.
    [[nodiscard]] std::vector<std::uint8_t> pixels(std::size_t count);

private:
    std::uint32_t below(std::size_t bound) { return static_cast<std::uint32_t>(random_() % bound); }
    bool chance(unsigned percent) { return below(100) < percent; }
    std::int32_t number(std::int32_t lowest, std::int32_t highest);
    std::size_t count(std::size_t most);
    std::string text(std::size_t mostCharacters);
    std::vector<std::uint8_t> noise(std::size_t bytes);

    Guid guid();
    Colour colour();
    VoiceSettings voice();
    BalloonSettings balloon();
    EncodedImage image();
    Sound sound();
    Frame frame(const CharacterData& character, std::size_t frames);
    Animation animation(const CharacterData& character, std::uint32_t index, std::size_t animations);
    void addAnimations(CharacterData& character);

    std::mt19937 random_;
};

} // namespace brovin::character
