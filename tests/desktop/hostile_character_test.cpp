// Characters that are made to hurt, chosen in the real window: it goes on to answer, and nothing of them
// takes a core.

#include "desktop/companion_world.h"
#include "desktop/hostile_characters.h"
#include "desktop/metered_application.h"

#include <QListWidget>

#include <ctime>

namespace brovin::tests {
namespace {

TEST(HostileCharacter, leavesTheWindowItsAnswersAndTheMachineItsTime) {
    auto characters = hostileCharacters();
    CompanionWorld world;
    for (auto& [name, refused, file] : characters)
        world.makeFile(QString("data/msagent/chars/%1.acs").arg(name),
                       QByteArray::fromStdString(file.bytes()));
    world.open();
    world.turnTo(3);
    for (const auto& [name, refused, file] : characters) {
        MeteredApplication::self().takeLongest();
        const std::clock_t before = std::clock();
        QElapsedTimer wall;
        wall.start();
        world.choose("lstChars", name);
        EXPECT_TRUE(waitUntil([gone = refused] { return (CompanionWorld::figure() == nullptr) == gone; }))
            << name;
        letPass(800);
        const auto seconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
        const double share = 1000 * seconds / static_cast<double>(wall.elapsed());
        const double longest = MeteredApplication::self().takeLongest();
        RecordProperty(std::string("longest_ms_") + name, std::to_string(longest));
        RecordProperty(std::string("share_of_a_core_") + name, std::to_string(share));
        EXPECT_LT(longest, 50) << name;
        EXPECT_LT(share, 0.5) << name;
    }
    // Each entry in sight is laid out at each step of the one that moves: a few of 65,535 letters took 57 ms.
    const auto talkers =
        qobject_cast<QListWidget*>(world.widget("lstChars"))->findItems("Talker", Qt::MatchExactly);
    ASSERT_EQ(1, talkers.size());
    EXPECT_EQ(300, talkers.front()->data(Qt::AccessibleDescriptionRole).toString().size());
}

} // namespace
} // namespace brovin::tests
