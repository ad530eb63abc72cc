#pragma once

#include "character/image_codec.h"
#include "character/raw_file.h"

#include <cstdint>
#include <string>
#include <vector>

namespace brovin::tests {

using character::Raw;

/// A square picture of one byte a pixel, as a character file keeps it.
template <class Pixel>
Raw hostilePicture(std::uint32_t side, Pixel pixel) {
    std::vector<std::uint8_t> plain;
    for (std::size_t i = 0; i < std::size_t{side} * side; ++i)
        plain.push_back(static_cast<std::uint8_t>(pixel(i)));
    const auto packed = character::pack(plain);
    const auto size = static_cast<std::uint32_t>(packed.size());
    return Raw().u8(0).u16(side).u16(side).u8(1).u32(size).raw(packed).zeros(8);
}

/// A frame of 1/100 s that shows `count` pictures from `first` on, and then goes on to the frame `next`.
inline Raw hostileFrame(std::uint32_t first, std::uint32_t count, std::uint32_t next,
                        std::uint32_t mouths = 0, std::uint32_t centiseconds = 1) {
    Raw frame;
    frame.u16(count);
    for (std::uint32_t i = 0; i < count; ++i)
        frame.u32(first + i).u16(0).u16(0);
    frame.u16(0).u16(centiseconds).u16(0xFFFE).u8(1).u16(next).u16(100).u8(mouths);
    for (std::uint32_t i = 0; i < mouths; ++i)
        frame.u8(i % 7).u8(0).u16(first + i).zeros(10);
    return frame;
}

/// A whole character file, 1024 by 1024 pixels, made to cost as much as it can.
class HostileFile {
public:
    /// Each time as a picture of its own.
    HostileFile& pictures(const Raw& picture, int times) {
        const auto place = file_.add(picture);
        for (int i = 0; i < times; ++i)
            images_.locator(place).u32(0);
        imageCount_ += static_cast<std::uint32_t>(times);
        return *this;
    }
    /// `records` are the frames one behind the other.
    HostileFile& animation(const std::u16string& name, std::uint32_t frames, const Raw& records) {
        const auto place = file_.add(Raw().text(name).u8(2).text(u"").u16(frames).raw(records.bytes()));
        animations_.text(name).locator(place);
        ++animationCount_;
        return *this;
    }
    /// By two frames in turn without end it shows itself, hides and speaks.
    HostileFile& acts(const Raw& first, const Raw& second) {
        for (const char16_t* const name : {u"Show", u"Hide", u"RestPose"})
            animation(name, 2, Raw(first).raw(second.bytes()));
        return *this;
    }
    HostileFile& describedBy(const std::u16string& words) {
        localized_ = file_.add(Raw().u16(1).u16(0x0409).text(u"Name").text(words).text(u""));
        return *this;
    }
    HostileFile& states(std::uint32_t count, const Raw& records) {
        states_ = Raw().u16(count).raw(records.bytes());
        return *this;
    }

    [[nodiscard]] std::string bytes() {
        using character::Table;
        Raw information = character::informationHead(0x110, localized_, 1024, 1024);
        information.u32(3).u32(0).u32(0x000000FF).u32(0x0000FF00).u8(0).raw(states_.bytes());
        file_.set(Table::Information, information);
        file_.set(Table::Animations, Raw().u32(animationCount_).raw(animations_.bytes()));
        file_.set(Table::Images, Raw().u32(imageCount_).raw(images_.bytes()));
        file_.set(Table::Sounds, Raw().u32(0));
        return {file_.bytes().begin(), file_.bytes().end()};
    }

private:
    character::RawFile file_;
    character::RawFile::Place localized_{};
    Raw images_;
    Raw animations_;
    Raw states_ = Raw().u16(0);
    std::uint32_t imageCount_ = 0;
    std::uint32_t animationCount_ = 0;
};

struct HostileCharacter {
    const char* name;
    bool refused;
    HostileFile file;
};

inline HostileFile manyNames(const Raw& picture) {
    HostileFile file;
    file.pictures(picture, 2).acts(hostileFrame(0, 1, 1), hostileFrame(1, 1, 0));
    std::u16string name(255, u'W');
    for (char16_t i = 0; i < 4000; ++i) {
        name.back() = static_cast<char16_t>(0x4E00 + i);
        file.animation(name, 1, hostileFrame(0, 1, 0));
    }
    return file;
}

/// States that name an animation of 65,535 frames without a picture, again and again.
inline HostileFile crowdedStates(const Raw& picture, std::uint32_t names) {
    HostileFile file;
    file.pictures(picture, 2).acts(hostileFrame(0, 1, 1), hostileFrame(1, 1, 0));
    Raw crowd;
    for (int i = 0; i < 65535; ++i)
        crowd.raw(hostileFrame(0, 0, 0, 0, 0).bytes());
    file.animation(u"Crowd", 65535, crowd);
    Raw states;
    for (int i = 0; i < 64; ++i) {
        states.text(u"Speaking").u16(names);
        for (std::uint32_t j = 0; j < names; ++j)
            states.text(u"Crowd");
    }
    return file.states(64, states);
}

inline std::vector<HostileCharacter> hostileCharacters() {
    const Raw noise = hostilePicture(1024, [state = 1U](std::size_t) mutable {
        state = state * 1664525U + 1013904223U;
        return state >> 24U;
    });
    const Raw bomb = hostilePicture(2048, [](std::size_t) { return 1; });
    const auto net = [](std::size_t odd) {
        return hostilePicture(1024, [odd](std::size_t i) { return (i + i / 1024 + odd) % 2 == 0 ? 1 : 10; });
    };
    HostileFile bombs, layers, most, nets, circle, mouths, talker;
    bombs.pictures(bomb, 512).acts(hostileFrame(0, 256, 1), hostileFrame(256, 256, 0));
    layers.pictures(noise, 512).acts(hostileFrame(0, 4, 1), hostileFrame(4, 4, 0));
    mouths.pictures(noise, 512).acts(hostileFrame(0, 1, 1, 255), hostileFrame(255, 1, 0, 255));
    most.pictures(noise, 6).acts(hostileFrame(0, 3, 1), hostileFrame(3, 3, 0));
    nets.pictures(net(0), 1).pictures(net(1), 1).acts(hostileFrame(0, 1, 1), hostileFrame(1, 1, 0));
    circle.pictures(noise, 1).acts(hostileFrame(0, 1, 1, 0, 0), hostileFrame(0, 1, 0, 0, 0));
    std::u16string words;
    for (char16_t i = 0; i < 65535; ++i)
        words.push_back(i % 7 == 0
                            ? u' '
                            : static_cast<char16_t>(0x0915 + i % 37)); // letters that change with each other
    talker.pictures(net(0), 2).acts(hostileFrame(0, 1, 1), hostileFrame(1, 1, 0)).describedBy(words);
    return {{"Bomb", true, bombs},
            {"Layers", true, layers},
            {"Most", false, most},
            {"Net", false, nets},
            {"Circle", false, circle},
            {"Mouths", false, mouths},
            {"Names", false, manyNames(noise)},
            {"States", false, crowdedStates(noise, 4096)},
            {"Crowded", true, crowdedStates(noise, 40000)},
            {"Talker", false, talker}};
}

} // namespace brovin::tests
