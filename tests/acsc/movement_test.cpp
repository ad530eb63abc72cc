#include "acsc/dot.h"
#include "acsc/easing.h"
#include "acsc/movement.h"
#include "acsc/sounds.h"

#include <gtest/gtest.h>

namespace brovin::acsc::tests {
namespace {

TEST(Easing, goesFromHereToThereItsOwnWay) {
    constexpr struct {
        Ease ease;
        double early; ///< after a quarter of the time
    } kCases[] = {
        {Ease::Linear, 0.25},     {Ease::In, 0.0625},      {Ease::Out, 0.4375},     {Ease::InOut, 0.15625},
        {Ease::OutBack, 0.81741}, {Ease::InBack, -0.0641}, {Ease::Bounce, 0.47266}, {Ease::Step, 0},
    };
    for (const auto& [ease, early] : kCases) {
        EXPECT_NEAR(0, eased(ease, 0), 1e-9);
        EXPECT_NEAR(early, eased(ease, 0.25), 1e-4) << static_cast<int>(ease);
        EXPECT_NEAR(1, eased(ease, 1), 1e-9);
    }
}

TEST(Tracks, takeFromThePoseWhatTheirKeysLeaveOut) {
    DotFolder dot;
    dot.replace(QStringLiteral("animations/all.json"), QStringLiteral("\"Show\": {"),
                QStringLiteral(R"("Lift": {"length": 9, "end": "raised", "tracks": {"arm": [
                    {"at": 4, "rotate": -20, "ease": "linear"}, {"at": 8, "ease": "linear"}]}}, "Show": {)"));
    Problems problems;
    const CharacterSource source = dot.read(problems);
    const std::vector<Pose> poses = posesOf(source.animations[0], *source.rig);
    const std::size_t arm = *source.rig->findPart(QStringLiteral("arm"));
    EXPECT_DOUBLE_EQ(-10, poses[2].parts[arm].rotate);
    EXPECT_DOUBLE_EQ(-30, poses[6].parts[arm].rotate) << "on the way to the pose that it ends with";
    EXPECT_DOUBLE_EQ(-2, poses[8].parts[arm].y);
}

TEST(Rig, turnsPartsAboutTheirPivots) {
    const DotFolder dot;
    Problems problems;
    const CharacterSource source = dot.read(problems);
    const std::size_t arm = *source.rig->findPart(QStringLiteral("arm"));
    const std::size_t body = *source.rig->findPart(QStringLiteral("body"));
    EXPECT_EQ(QRectF(24, 12, 6, 8), source.rig->parts()[arm].bounds);
    Pose pose = source.rig->neutral();
    pose.parts[arm].rotate = 90;
    pose.parts[body].x = 3;
    EXPECT_EQ(QPointF(28, 16), source.rig->movement(pose, arm).map(QPointF(25, 16)))
        << "the pivot goes along only";
    EXPECT_EQ(QPointF(24, 16), source.rig->movement(pose, arm).map(QPointF(25, 20)));
    const Jump jump = jumpBetween(source.rig->neutral(), pose, *source.rig);
    EXPECT_EQ(arm, jump.part);
}

TEST(Sounds, areMadeByTheirRecipe) {
    const character::CharacterData data = DotFolder().compile();
    ASSERT_EQ(1U, data.sounds.size());
    const auto wave = data.sounds[0].wave.view();
    ASSERT_EQ(44U + 2U * 4410U, wave.size()) << "0.2 s at 22050 Hz";
    int loudest = 0;
    for (std::size_t i = 44; i + 1 < wave.size(); i += 2)
        loudest = std::max(loudest, std::abs(static_cast<std::int16_t>(wave[i] | wave[i + 1] << 8)));
    EXPECT_NEAR(0.6 * 32767, loudest, 700);
}

} // namespace
} // namespace brovin::acsc::tests
