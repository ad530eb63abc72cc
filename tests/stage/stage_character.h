#pragma once

#include "character/character_data.h"

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace brovin::character {

/// A frame in a test: what matters of it.
struct TestFrame {
    int ms = 100;
    bool pictured = true;
    std::optional<std::uint16_t> exit{};
    std::vector<Branch> branches{};
    std::vector<Mouth> mouths{};
    std::optional<std::uint16_t> sound{};
};

/// A character whose frames are known by their animation's name and their number, such as "Wave0". It has a
/// voice and a balloon.
class TestCharacter {
public:
    TestCharacter() {
        data.width = 100;
        data.height = 80;
        data.voice.emplace();
        data.balloon.emplace();
        data.balloon->charactersPerLine = 20;
    }

    CharacterData data;

    TestCharacter& animation(const std::string& name, std::initializer_list<TestFrame> frames,
                             Transition transition = Transition::None) {
        Animation& added = data.animations.emplace_back();
        added.name = name;
        added.transition = transition;
        for (const TestFrame& frame : frames)
            added.frames.push_back(make(frame, added.frames.size()));
        return *this;
    }

    /// The last animation that was added is led back from by this one, which is added first.
    TestCharacter& ledBackBy(const std::string& name) {
        data.animations.back().transition = Transition::ReturnAnimation;
        data.animations.back().returnAnimation = index(name);
        return *this;
    }

    TestCharacter& state(const std::string& name, std::initializer_list<const char*> animations) {
        State& added = data.states.emplace_back();
        added.name = name;
        for (const char* const animation : animations)
            added.animations.push_back(index(animation));
        return *this;
    }

    [[nodiscard]] std::uint32_t index(const std::string& name) const {
        std::uint32_t i = 0;
        while (data.animations.at(i).name != name)
            ++i;
        return i;
    }

    /// "Wave0"; "nothing" for a frame without a picture.
    [[nodiscard]] static std::string nameOf(const CharacterData& data, const Frame& frame) {
        if (frame.images.empty())
            return "nothing";
        const std::uint32_t image = frame.images.front().image;
        return data.animations.at(image / kFrames).name + std::to_string(image % kFrames);
    }

private:
    static constexpr std::uint32_t kFrames = 1000; ///< more than any animation here has

    [[nodiscard]] Frame make(const TestFrame& from, std::size_t number) const {
        Frame frame;
        const auto animation = static_cast<std::uint32_t>(data.animations.size() - 1);
        if (from.pictured)
            frame.images.push_back({animation * kFrames + static_cast<std::uint32_t>(number), 0, 0});
        frame.duration = FrameDuration{from.ms / 10};
        frame.exitFrame = from.exit;
        frame.branches = from.branches;
        frame.sound = from.sound;
        for (const Mouth mouth : from.mouths)
            frame.mouths.push_back({mouth, false, 0, 0, 0});
        return frame;
    }
};

} // namespace brovin::character
