#include "acsc/dot.h"

#include <gtest/gtest.h>

namespace brovin::acsc::tests {
namespace {

constexpr const char* kAnimations = "animations/all.json";

struct Mistake {
    const char* file;
    const char* text;
    const char* by;
    const char* told; ///< a part of what is said about it
};

const Mistake kMistakes[] = {
    {kAnimations, "\"length\": 5", "\"lenght\": 5",
     "animations/all.json, Show: the key \"lenght\" is unknown"},
    {kAnimations, "\"body\": [{\"at\": 0}, {\"at\": 2", "\"bodi\": [{\"at\": 0}, {\"at\": 2",
     "Show.tracks.bodi: the drawing has no group"},
    {kAnimations, "\"y\": -2", "\"y\": \"up\"", "Show.tracks.body[1].y: a number is expected"},
    {kAnimations, "\"y\": -2", "\"y\": 1e300", "is not between"},
    {kAnimations, "\"y\": -2", "\"y\": NaN", "animations/all.json: line 2"},
    {kAnimations, "{\"at\": 4}", "{\"at\": 4, \"y\": 1}",
     "Show: frame 4 is not in the pose \"neutral\": body.y is 1"},
    {kAnimations, "{\"at\": 4}", "{\"at\": 5}", "Show.tracks.body[2].at: 5 is not between 0 and 4"},
    {kAnimations, "{\"at\": 2, \"y\"", "{\"at\": 0, \"y\"", "must be greater"},
    {kAnimations, "\"end\": \"raised\"", "\"end\": \"risen\"", "there is no pose \"risen\""},
    {kAnimations, "\"end\": \"raised\"", "\"end\": \"neutral\"",
     "frame 8 is not in the pose \"neutral\": arm."},
    {kAnimations, "{\"at\": 15, \"to\": \"neutral\"}", "{\"at\": 15, \"to\": \"raised\"}",
     "Wave: frame 15 is not"},
    {kAnimations, "\"to\": \"closed\"", "\"to\": \"shut\"",
     "Blink.switches.eyes[0]: the switch has no choice"},
    {kAnimations, "\"to\": \"open\"", "\"to\": \"closed\"",
     "switch eyes is \"closed\" and should be \"open\""},
    {kAnimations, "chirp", "chirrup", "sounds/chirrup.wav"},
    {kAnimations, "\"frame\": 5", "\"frame\": 0", "Blink.frame: 0 is not between 1"},
    {kAnimations, "\"frame\": 5", "\"return\": \"Nothing\", \"frame\": 5",
     "there is no animation \"Nothing\""},
    {kAnimations, "\"Blink\"", "\"blink\": {\"length\": 1}, \"Blink\"", "another animation of this name"},
    {kAnimations, "\"from\": 3", "\"from\": 9", "\"from\" lies behind \"to\""},
    {"character.json", "\"m2\"", "\"m9\"", "mouths.wide2: the drawing has no group \"m9\""},
    {"character.json", "\"size\": [32, 32]", "\"size\": [33, 32]", "viewBox=\"0 0 33 32\""},
    {"character.json", "\"size\": [32, 32]", "\"size\": [0, 32]", "size[0]: 0 is not between 1 and 1024"},
    {"character.json", "\"wide3\": \"m3\", ", "", "mouths: \"wide3\" is missing"},
    {"character.json", "[\"Blink\"]", "[\"Wink\"]", "IdlingLevel1[0]: there is no animation \"Wink\""},
    {"character.json", "\"guid\"", "\"gid\"", "guid: is missing"},
    {"character.json", "\"de\"", "\"qq\"", "the language is unknown"},
    {"rig.svg", "<defs>", "<defs><filter id=\"f\"/>", "<filter> cannot be drawn"},
    {"rig.svg", "id=\"m1\"", "id=\"m0\"", "there are two groups \"m0\""},
    {"rig.svg", "translate(24 12)", "shift(24 12)", "the transform is not understood"},
    {"rig.svg", "</svg>", "", "rig.svg: line"},
    {"sounds/chirp.json", "\"sine\"", "\"saw\"", "the wave is none of"},
    {"sounds/chirp.json", "0.6", "6", "gain[1][1]: 6 is not between 0 and 1"},
};

TEST(Problems, areToldWithFileAnimationAndKey) {
    for (const Mistake& mistake : kMistakes) {
        DotFolder dot;
        dot.replace(QString::fromLatin1(mistake.file), QString::fromLatin1(mistake.text),
                    QString::fromLatin1(mistake.by));
        EXPECT_TRUE(dot.problems().contains(QString::fromLatin1(mistake.told)))
            << mistake.by << "\n  gives: " << qPrintable(dot.problems());
    }
    EXPECT_EQ(QString(), DotFolder().problems());
}

TEST(Problems, areThereWhenReturnsLeadRoundInACircle) {
    DotFolder dot;
    const QString file = QString::fromLatin1(kAnimations);
    dot.replace(file, QStringLiteral("\"frame\": 5,"),
                QStringLiteral("\"frame\": 5, \"return\": \"RestPose\","));
    EXPECT_EQ(QString(), dot.problems());
    dot.replace(file, QStringLiteral("\"speaks\": true}"), QStringLiteral("\"return\": \"Blink\"}"));
    EXPECT_TRUE(
        dot.problems().contains(QStringLiteral("RestPose, return: \"Blink\" has a return by name itself")))
        << qPrintable(dot.problems());
}

} // namespace
} // namespace brovin::acsc::tests
