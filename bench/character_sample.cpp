#include "character_sample.h"

#include <cmath>
#include <random>
#include <string>
#include <utility>

namespace brovin::bench {
namespace {

using namespace character;

constexpr int kSide = 200;
constexpr std::uint32_t kImages = 1500;
constexpr std::uint32_t kAnimations = 60;
constexpr std::uint8_t kTransparent = 10;

/// The colour at a place: a shadow on the ground, a body with a shaded side, a head, eyes.
std::uint8_t colourAt(int x, int y, double phase, std::uint32_t dither) {
    const auto inEllipse = [x, y](double centreX, double centreY, double radiusX, double radiusY) {
        return std::hypot((x - centreX) / radiusX, (y - centreY) / radiusY);
    };
    const double headX = 100 + 20 * std::sin(phase);
    const double headY = 60 + 6 * std::cos(phase * 2);
    for (const double eye : {-14.0, 14.0})
        if (inEllipse(headX + eye, headY - 5, 6, 9) < 1)
            return inEllipse(headX + eye, headY - 3, 3, 4) < 1 ? 0 : 255;
    if (const double head = inEllipse(headX, headY, 42, 45); head < 1)
        return head > 0.95 ? 0 : static_cast<std::uint8_t>(60 + 18 * head + (dither & 1U));
    if (const double body = inEllipse(100, 140, 50, 48); body < 1)
        return body > 0.95 ? 0 : static_cast<std::uint8_t>(100 + (x + y / 3) / 9);
    if (inEllipse(100, 188, 80, 10) < 1)
        return (x + y) % 2 == 0 ? 0 : kTransparent;
    return kTransparent;
}

Animation animation(std::uint32_t index) {
    constexpr std::uint32_t kFrames = kImages / kAnimations;
    Animation animation;
    animation.name = "Animation" + std::to_string(index);
    animation.transition = Transition::ExitBranches;
    for (std::uint32_t i = 0; i < kFrames; ++i) {
        Frame& frame = animation.frames.emplace_back();
        frame.images = {{index * kFrames + i, 0, 0}};
        frame.duration = FrameDuration(10);
        frame.exitFrame = static_cast<std::uint16_t>(kFrames - 1);
    }
    for (std::uint8_t mouth = 0; mouth < kMouthCount; ++mouth)
        animation.frames.back().mouths.push_back({static_cast<Mouth>(mouth), false, mouth, 80, 90});
    return animation;
}

} // namespace

IndexedImage drawnFigure(std::uint32_t step) {
    std::mt19937 random(step);
    IndexedImage image{kSide, kSide, {}};
    image.pixels.reserve(std::size_t{kSide} * kSide);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            image.pixels.push_back(colourAt(x, y, step * 0.13, static_cast<std::uint32_t>(random())));
    return image;
}

CharacterData sampleCharacter() {
    CharacterData character;
    character.guid.first = 5;
    character.info = {{0x0409, "Sample", "A figure that is drawn to be measured.", ""}};
    character.width = kSide;
    character.height = kSide;
    character.palette.resize(256);
    character.transparentIndex = kTransparent;
    for (std::uint32_t i = 0; i < kImages; ++i)
        character.images.push_back(encodeImage(drawnFigure(i)));
    for (std::uint32_t i = 0; i < kAnimations; ++i)
        character.animations.push_back(animation(i));
    character.states = {{"Showing", {0}}, {"Hiding", {1}}, {"Speaking", {2, 3}}};
    return character;
}

std::vector<std::uint8_t> noise(std::size_t count) {
    std::mt19937 random(1);
    std::vector<std::uint8_t> bytes(count);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    return bytes;
}

std::vector<std::uint8_t> shortCopies(std::size_t count) {
    std::mt19937 random(2);
    std::vector<std::uint8_t> bytes(count);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random() % 6);
    return bytes;
}

} // namespace brovin::bench
