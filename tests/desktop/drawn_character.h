#pragma once

#include "character/acs_writer.h"
#include "character/character_data.h"
#include "character/image_codec.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace brovin::tests {

/// A red ring with a hole in its middle, in a frame of 120 by 120 pixels whose corners are transparent. It
/// shows and hides at once, talks with two mouths, and jumps without end by "Jump".
inline character::CharacterData drawnCharacter() {
    using namespace character;
    constexpr int kSide = 120;
    const auto ring = [](double outer, double middleY) {
        IndexedImage image{kSide, kSide, {}};
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x) {
                const double distance = std::hypot(x - 59.5, y - middleY);
                image.pixels.push_back(distance < outer && distance > 20 ? 1 : 0);
            }
        return encodeImage(image);
    };
    CharacterData data;
    data.guid.first = 0xB0B;
    data.info = {{0x0409, "Ring", "A ring.", ""}};
    data.width = kSide;
    data.height = kSide;
    data.palette = {{0, 0, 0}, {220, 30, 40}, {40, 200, 60}};
    data.transparentIndex = 0;
    data.balloon.emplace();
    data.balloon->charactersPerLine = 24;
    data.balloon->fontName = "DejaVu Sans";
    data.images = {ring(55, 59.5), ring(45, 70), encodeImage({30, 8, std::vector<std::uint8_t>(240, 2)})};
    Frame still;
    still.images = {{0, 0, 0}};
    still.duration = FrameDuration{1};
    still.mouths = {{Mouth::OpenWide2, false, 2, 45, 85}, {Mouth::OpenNarrow, false, 2, 45, 90}};
    Frame low = still;
    low.images = {{1, 0, 0}};
    low.duration = FrameDuration{10};
    low.mouths.clear();
    low.exitFrame = 1;
    Frame back = low;
    back.images = {{0, 0, 0}};
    back.branches = {{0, 100}};
    for (const char* const name : {"Show", "Hide", "RestPose"})
        data.animations.push_back({name, Transition::None, std::nullopt, {still}});
    data.animations.push_back({"Jump", Transition::ExitBranches, std::nullopt, {low, back}});
    data.states = {{"Showing", {0}}, {"Hiding", {1}}, {"Speaking", {2}}};
    return data;
}

inline void writeCharacterFile(const QString& path, const character::CharacterData& data) {
    const auto bytes = character::writeCharacter(data);
    ASSERT_TRUE(bytes) << bytes.failure().reason;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(reinterpret_cast<const char*>(bytes->data()), static_cast<qint64>(bytes->size()));
}

} // namespace brovin::tests
