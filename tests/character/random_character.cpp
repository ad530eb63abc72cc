#include "random_character.h"

#include "character/indexed_image.h"

#include <array>
#include <string_view>
#include <utility>

namespace brovin::character {

std::int32_t RandomCharacter::number(std::int32_t lowest, std::int32_t highest) {
    if (chance(20))
        return chance(50) ? lowest : highest;
    return lowest + static_cast<std::int32_t>(below(static_cast<std::size_t>(highest - lowest) + 1));
}

std::size_t RandomCharacter::count(std::size_t most) {
    return chance(25) ? 0 : below(most + 1);
}

std::string RandomCharacter::text(std::size_t mostCharacters) {
    constexpr std::array<std::string_view, 10> kPieces{"a",      "Z",      "_1",         " ",      "\u00DF",
                                                       "\u0416", "\u20AC", "\U0001F600", "\uFFFD", "\u0001"};
    std::string text;
    for (std::size_t left = count(mostCharacters); left > 0; --left)
        text.append(kPieces[below(kPieces.size())]);
    return text;
}

std::vector<std::uint8_t> RandomCharacter::noise(std::size_t bytes) {
    std::vector<std::uint8_t> noise(bytes);
    for (std::uint8_t& byte : noise)
        byte = static_cast<std::uint8_t>(below(256));
    return noise;
}

std::vector<std::uint8_t> RandomCharacter::pixels(std::size_t count) {
    std::vector<std::uint8_t> pixels;
    while (pixels.size() < count) {
        const std::size_t length = 1 + below(chance(10) ? 5000 : 40);
        const std::size_t back = 1 + below(chance(50) ? 64 : 6000);
        const auto shade = static_cast<std::uint8_t>(below(256));
        const unsigned kind = below(3);
        for (std::size_t i = 0; i < length; ++i) {
            const bool repeats = kind == 0 && back <= pixels.size();
            const bool noisy = kind == 1 && length < 100;
            pixels.push_back(repeats ? pixels[pixels.size() - back]
                             : noisy ? static_cast<std::uint8_t>(below(256))
                                     : shade);
        }
    }
    pixels.resize(count);
    return pixels;
}

Guid RandomCharacter::guid() {
    Guid guid;
    guid.first = static_cast<std::uint32_t>(random_());
    guid.second = static_cast<std::uint16_t>(number(0, 65535));
    guid.third = static_cast<std::uint16_t>(number(0, 65535));
    for (std::uint8_t& byte : guid.rest)
        byte = static_cast<std::uint8_t>(number(0, 255));
    return guid;
}

Colour RandomCharacter::colour() {
    Colour colour;
    colour.red = static_cast<std::uint8_t>(number(0, 254)); // never pure, and so none of the standard colours
    colour.green = static_cast<std::uint8_t>(number(0, 254));
    colour.blue = static_cast<std::uint8_t>(number(1, 127));
    return colour;
}

VoiceSettings RandomCharacter::voice() {
    VoiceSettings voice;
    voice.engine = guid();
    voice.mode = chance(50) ? guid() : Guid();
    if (chance(70))
        voice.wordsPerMinute = static_cast<std::uint16_t>(number(50, 400));
    if (chance(70))
        voice.pitchHertz = static_cast<std::uint16_t>(number(40, 500));
    if (chance(50)) {
        VoiceTraits& traits = voice.traits.emplace();
        traits.language = static_cast<LanguageId>(number(0, 65535));
        traits.dialect = text(20);
        traits.gender = static_cast<Gender>(below(3));
        traits.ageYears = static_cast<std::uint16_t>(number(0, 65535));
        traits.style = text(20);
    }
    return voice;
}

BalloonSettings RandomCharacter::balloon() {
    BalloonSettings balloon;
    balloon.lines = static_cast<std::uint8_t>(number(1, 128));
    balloon.charactersPerLine = static_cast<std::uint8_t>(number(8, 255));
    balloon.text = colour();
    balloon.background = colour();
    balloon.border = colour();
    balloon.fontName = text(30);
    balloon.fontHeightPixels = static_cast<std::uint8_t>(number(1, 200));
    balloon.fontWeight = static_cast<std::uint16_t>(number(0, 1000));
    balloon.italic = chance(50);
    balloon.sizeToText = chance(50);
    balloon.autoHide = chance(50);
    balloon.autoPace = chance(50);
    return balloon;
}

EncodedImage RandomCharacter::image() {
    if (chance(10))
        return {};
    const auto width = static_cast<std::uint16_t>(number(1, 60));
    const auto height = static_cast<std::uint16_t>(number(1, 60));
    if (chance(10)) // damaged inside, which only decoding can tell
        return {width, height, ImageCoding::Packed, SharedBytes(noise(count(50)))};
    return encodeImage({width, height, pixels(std::size_t{width} * height)});
}

Sound RandomCharacter::sound() {
    if (chance(20))
        return {};
    std::vector<std::uint8_t> wave{'R', 'I', 'F', 'F', 0, 0, 0, 0, 'W', 'A', 'V', 'E'};
    const std::vector<std::uint8_t> rest = noise(count(100));
    wave.insert(wave.end(), rest.begin(), rest.end());
    return {SharedBytes(std::move(wave))};
}

Frame RandomCharacter::frame(const CharacterData& character, std::size_t frames) {
    const auto offset = [this] { return static_cast<std::int16_t>(number(-32768, 32767)); };
    const std::size_t images = character.images.size();
    Frame frame;
    for (std::size_t i = images == 0 ? 0 : count(4); i > 0; --i)
        frame.images.push_back({below(images), offset(), offset()});
    for (std::size_t i = count(3); i > 0; --i)
        frame.branches.push_back(
            {static_cast<std::uint16_t>(below(frames)), static_cast<std::uint16_t>(number(0, 65535))});
    for (std::size_t i = images == 0 ? 0 : count(8); i > 0; --i)
        frame.mouths.push_back({static_cast<Mouth>(below(kMouthCount)), chance(50),
                                static_cast<std::uint16_t>(below(images)), offset(), offset()});
    frame.duration = FrameDuration(number(0, 65535));
    if (!character.sounds.empty() && chance(20))
        frame.sound = static_cast<std::uint16_t>(below(character.sounds.size()));
    if (chance(30))
        frame.exitFrame = static_cast<std::uint16_t>(below(frames));
    return frame;
}

Animation RandomCharacter::animation(const CharacterData& character, std::uint32_t index,
                                     std::size_t animations) {
    Animation animation;
    animation.name = text(40) + std::to_string(index) + "#"; // so that no two are the same
    animation.transition = static_cast<Transition>(below(3));
    if (animation.transition == Transition::ReturnAnimation)
        animation.returnAnimation = below(animations);
    const std::size_t frames = count(20);
    for (std::size_t i = 0; i < frames; ++i)
        animation.frames.push_back(frame(character, frames));
    return animation;
}

void RandomCharacter::addAnimations(CharacterData& character) {
    const std::size_t animations = count(20);
    for (std::uint32_t i = 0; i < animations; ++i)
        character.animations.push_back(animation(character, i, animations));
    for (std::size_t i = count(20); i > 0; --i) {
        State& state = character.states.emplace_back();
        state.name = text(20);
        for (std::size_t j = animations == 0 ? 0 : count(5); j > 0; --j)
            state.animations.push_back(below(animations));
    }
}

CharacterData RandomCharacter::make() {
    CharacterData character;
    character.guid = guid();
    character.formatVersion.minor = static_cast<std::uint16_t>(number(0, 65535));
    character.animationSetVersion = {static_cast<std::uint16_t>(number(0, 65535)),
                                     static_cast<std::uint16_t>(number(0, 65535))};
    character.standardAnimations = chance(50);
    for (std::size_t i = count(5); i > 0; --i)
        character.info.push_back(
            {static_cast<LanguageId>(number(0, 65535)), text(100), text(300), text(300)});
    character.width = static_cast<std::uint16_t>(number(1, 1024));
    character.height = static_cast<std::uint16_t>(number(1, 1024));
    for (std::int32_t i = number(1, 256); i > 0; --i)
        character.palette.push_back(colour());
    character.transparentIndex = static_cast<std::uint8_t>(number(0, 255));
    if (chance(70))
        character.voice = voice();
    if (chance(70))
        character.balloon = balloon();
    if (chance(50))
        character.trayIcon = TrayIcon{SharedBytes(noise(count(300))), SharedBytes(noise(count(300)))};
    for (std::size_t i = count(10); i > 0; --i)
        character.images.push_back(image());
    for (std::size_t i = count(4); i > 0; --i)
        character.sounds.push_back(sound());
    addAnimations(character);
    return character;
}

} // namespace brovin::character
