// A day with the companion: the whole program with the character that ships, by real clicks, drags and keys.

#include "desktop/companion_world.h"
#include "desktop/program_process.h"

#include <QClipboard>
#include <QMenu>

#include <set>

namespace brovin::tests {
namespace {

using desktop::CharacterWindow;

/// The sounds of one of the shipped character's animations.
std::set<std::uint32_t> soundsOf(const std::string& animation) {
    std::set<std::uint32_t> sounds;
    for (const auto& candidate : readFile(CompanionWorld::kPeedy).animations)
        if (candidate.name == animation)
            for (const auto& frame : candidate.frames)
                if (frame.sound)
                    sounds.insert(*frame.sound);
    EXPECT_FALSE(sounds.empty()) << animation;
    return sounds;
}

TEST(CompanionJourney, saysAndDoesWhatItIsToldTo) {
    CompanionWorld world;
    world.open();
    world.turnTo(4);
    world.press("txtSay");
    input({"type", "--delay", "15", "Hello there"});
    EXPECT_TRUE(waitUntil([&] { return world.form().txtSay.text() == "Hello there"; }));
    world.press("cmdStop");
    const std::string said = world.saidAfter([&] { world.press("cmdSay"); });
    EXPECT_NE(std::string::npos, said.find("Hello there")) << said;
    EXPECT_TRUE(waitUntil(CompanionWorld::balloonIsOpen));
    letPass(300);
    Journey::takePicture("companion-says");
    world.press("cmdStop");
    EXPECT_TRUE(waitUntil([] { return !CompanionWorld::balloonIsOpen(); }));

    world.choose("lstAnims", "DoMagic1");
    const std::set<std::uint32_t> sounds = soundsOf("DoMagic1");
    world.heard.sounds.clear();
    EXPECT_TRUE(world.insist("cmdDo", [&] {
        const std::set<std::uint32_t> played(world.heard.sounds.begin(), world.heard.sounds.end());
        return std::includes(played.begin(), played.end(), sounds.begin(), sounds.end());
    })) << "the animation, by its sounds";
}

TEST(CompanionJourney, standsBesideTheWindowAtItsFirstStart) {
    const auto xrandr = [](const QString& command) {
        EXPECT_EQ(0, QProcess::execute("xrandr", command.split(QLatin1Char(' '))));
    };
    const QFont usual = QApplication::font();
    for (const auto& [width, letters] : {std::pair{1024, 1}, {800, 1}, {1024, 2}}) {
        xrandr(QStringLiteral("--setmonitor only %1/200x600/150+0+0 screen").arg(width));
        EXPECT_TRUE(
            waitUntil([wide = width] { return QApplication::primaryScreen()->geometry().width() == wide; }));
        QFont large = usual;
        large.setPointSizeF(usual.pointSizeF() * letters);
        QApplication::setFont(large);
        CompanionWorld world;
        ASSERT_TRUE(QFile::remove(QString::fromStdString(world.places.settingsFile)));
        world.start();
        EXPECT_TRUE(waitUntil([] { return CompanionWorld::figure() != nullptr; }));
        world.form().mPopRestore.click();
        EXPECT_TRUE(waitUntil([&world] { return world.program->window().isActiveWindow(); }));
        EXPECT_TRUE(waitUntil(CompanionWorld::balloonIsOpen));
        letPass(500);
        Journey::takePicture(QStringLiteral("first start %1 %2").arg(width).arg(letters));
        const QRect window = world.program->window().frameGeometry();
        const QRect balloon = CharacterWorld::window<desktop::Bubble>()->geometry();
        EXPECT_FALSE(CompanionWorld::figure()->geometry().intersects(window)) << width << ' ' << letters;
        EXPECT_FALSE(balloon.intersects(window)) << width << ' ' << letters;
        xrandr("--delmonitor only");
        letPass(500);
    }
    QApplication::setFont(usual);
}

TEST(CompanionJourney, keepsTheSliderBetweenItsEnds) {
    CompanionWorld world;
    world.open();
    world.turnTo(3);
    for (const auto& [way, value] : {std::pair{900, "200"}, {-900, "0"}}) {
        world.dragKnob(way);
        EXPECT_TRUE(waitUntil([&, wanted = value] { return world.stored("SpeechFreq") == wanted; })) << value;
        const auto& parts = world.form().picSlide.parts();
        EXPECT_EQ(way > 0 ? world.form().picSlide.track().width : 0, parts.fillWidth) << value;
    }
}

/// A place on the screen where the character can be taken hold of, in the middle or at the left of its body.
/// It may be on its way there when it appears.
QPoint gripOn(int fromLeft = 64) {
    const CharacterWindow& figure = *CompanionWorld::figure();
    const QPoint grip(fromLeft, 92);
    QElapsedTimer still;
    still.start();
    EXPECT_TRUE(waitUntil([&] {
        if (!figure.shape().contains(QRect(grip - QPoint(3, 3), QSize(7, 7))))
            still.restart();
        return still.hasExpired(500);
    }));
    return figure.place() + grip;
}

TEST(CompanionJourney, answersTheHandThatTouchesIt) {
    const Phrases phrases(CompanionWorld::kShipped + "/default.blp");
    CompanionWorld world;
    world.open();
    world.turnTo(4);
    const auto drag = [&](int fromLeft, QPoint to) {
        const QPoint grip = gripOn(fromLeft);
        const QPoint half = (grip + to) / 2;
        return world.saidAfter([&] {
            input(at(grip) + QStringList{"mousedown", "1"} + at(half) + at(to) + QStringList{"mouseup", "1"});
        });
    };
    world.press("cmdStop");
    const std::string touched = world.saidAfter([] { input(at(gripOn()) + CompanionWorld::kClick); });
    EXPECT_TRUE(phrases.have({"spkClickPeedy", "spkClick", "spkClickNoMore"}, touched)) << touched;
    world.press("cmdStop"); // it may be about to hide, having had enough
    world.paste("txtSay", "Stay here");
    world.saidAfter([&] { world.press("cmdSay"); });
    world.press("cmdStop");
    ASSERT_TRUE(waitUntil([] { return CompanionWorld::figure() != nullptr; }));

    world.heard.texts.clear();
    input(at(gripOn()) + QStringList{"click", "3"});
    const auto menu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
    ASSERT_TRUE(waitUntil([&] { return menu() != nullptr; }));
    EXPECT_EQ("&Hide", menu()->actions().value(0)->text().toStdString());
    input({"key", "Escape"});
    EXPECT_TRUE(waitUntil([&] { return menu() == nullptr; }));
    EXPECT_EQ(std::vector<std::string>{}, world.heard.texts) << "the right button is for the menu alone";

    const QPoint before = CompanionWorld::figure()->place();
    const QPoint grip = gripOn();
    const std::string moved = drag(64, grip + QPoint(-30, -120));
    EXPECT_TRUE(phrases.have({"spkCharMove"}, moved)) << moved;
    EXPECT_EQ(before + QPoint(-30, -120), CompanionWorld::figure()->place());
    EXPECT_EQ(QString::number(before.x() - 30), world.stored("AgentX"));
    EXPECT_EQ(QString::number(before.y() - 120), world.stored("AgentY"));

    const std::string lost = drag(45, {1020, 400}); // 975 is more than 1024 - 128 / 2
    EXPECT_TRUE(phrases.have({"spkCharMove"}, lost)) << lost;
    EXPECT_TRUE(waitUntil([] { return CompanionWorld::figure()->place() == QPoint(0, 768 - 147); }));
    EXPECT_EQ("0", world.stored("AgentX"));
    EXPECT_EQ("621", world.stored("AgentY"));
}

TEST(CompanionJourney, staysOnTheMonitorThatItWasDraggedTo) {
    const auto xrandr = [](const QString& command) {
        EXPECT_EQ(0, QProcess::execute("xrandr", command.split(QLatin1Char(' '))));
    };
    xrandr("--setmonitor left 512/100x768/200+0+0 screen");
    xrandr("--setmonitor right 512/100x600/200+512+0 none");
    ASSERT_TRUE(waitUntil([] { return QGuiApplication::screens().size() == 2; }));
    {
        CompanionWorld world;
        world.makeFile("config/Brovin/Brovin.conf", "[Settings]\nAgentX=150\nAgentY=300\n");
        world.start();
        ASSERT_TRUE(waitUntil([] { return CompanionWorld::figure() != nullptr; }));
        ASSERT_EQ(QPoint(150, 300), CompanionWorld::figure()->place());
        const QPoint grip = gripOn();
        const QPoint to = grip + QPoint(500, -50);
        input(at(grip) + QStringList{"mousedown", "1"} + at((grip + to) / 2) + at(to) +
              QStringList{"mouseup", "1"});
        EXPECT_TRUE(waitUntil([&world] { return world.stored("AgentX") == "650"; }));
        letPass(500);
        Journey::takePicture("on the other monitor");
        EXPECT_EQ(QPoint(650, 250), CompanionWorld::figure()->place());
        world.program.reset();
        world.start();
        ASSERT_TRUE(waitUntil([] { return CompanionWorld::figure() != nullptr; }));
        EXPECT_EQ(QPoint(650, 250), CompanionWorld::figure()->place());
    }
    xrandr("--delmonitor right");
    xrandr("--delmonitor left");
    EXPECT_TRUE(waitUntil([] { return QGuiApplication::screens().size() == 1; }));
}

/// The windows of the binary itself that are on the screen, of this title alone where one is given.
QByteArray windowsOf(const Process& program, const QStringList& title = {}) {
    return askDesktop(
        QStringList{"search", "--all", "--onlyvisible", "--pid", QString::number(program.pid())} + title);
}
const QStringList kPeedy{"--name", "^Peedy$"};

/// Opens the window by the icon, which is all that is to be seen of the program.
void openByItsIcon(const Process& program) {
    ASSERT_TRUE(waitUntil([&] { // a menu or a balloon may still be on its way out
        const QByteArray icon = windowsOf(program).split('\n').front();
        if (!icon.isEmpty())
            input({"mousemove", "--window", icon, "12", "12", "sleep", "0.3", "click", "1", "sleep", "0.5"});
        return windowOnScreen();
    }));
}

TEST(CompanionJourney, staysAwayInTheNextRunWhenItWasSentAway) {
    const QTemporaryDir root;
    const QString settings = root.filePath("config/Brovin/Brovin.conf");
    const auto shown = [&] {
        return QSettings(settings, QSettings::IniFormat).value("Settings/AgentShow").toString();
    };
    {
        Process first(root.path());
        ASSERT_TRUE(waitUntil([&] { return !windowsOf(first, kPeedy).isEmpty(); }));
        const QByteArray peedy = windowsOf(first, kPeedy);
        EXPECT_TRUE(waitUntil([&] { // its picture is small at first
            input({"mousemove", "--window", peedy, "64", "90", "click", "3", "sleep", "0.5", "key", "h"});
            return shown() == "False";
        }));
        EXPECT_TRUE(waitUntil([&] { return windowsOf(first, kPeedy).isEmpty(); }));
        openByItsIcon(first);
        EXPECT_TRUE(waitUntil([&] { // the exit button, and the question's Yes
            input({"key", "alt+x", "sleep", "0.5", "key", "alt+y"});
            return first.ends(10);
        }));
        EXPECT_EQ("False", shown());
    }
    Process second(root.path());
    openByItsIcon(second);
    EXPECT_EQ("", windowsOf(second, kPeedy));
    EXPECT_FALSE(second.ends(100));
}

} // namespace
} // namespace brovin::tests
