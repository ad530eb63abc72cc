#include "desktop/character/bubble.h"
#include "desktop/character/character_window.h"
#include "desktop/character_world.h"

#include <QProcess>

#include <unistd.h>

namespace brovin::tests {
namespace {

using desktop::Bubble;
using desktop::CharacterWindow;
using Lines = std::vector<std::string>;

constexpr QPoint kPlace(400, 300);
constexpr QPoint kOnRing(30, 60);
constexpr QPoint kInHole(60, 60);
constexpr QPoint kInCorner(5, 5);
const QColor kRed(220, 30, 40);

std::string pressed(const char* what, int button, int shift, QPoint place) {
    return std::string(what) + ' ' + std::to_string(button) + ' ' + std::to_string(shift) + ' ' +
           std::to_string(place.x()) + ' ' + std::to_string(place.y());
}

std::string property(const QWidget& window, const char* name) {
    QProcess xprop;
    xprop.start("xprop", {"-id", QString::number(window.winId()), name});
    xprop.waitForFinished(5000);
    return xprop.readAllStandardOutput().toStdString();
}

/// As a window manager reads it: it takes no input, and is not to be offered any.
void expectNoWishForTheKeyboard(const QWidget& window) {
    const std::string protocols = property(window, "WM_PROTOCOLS");
    EXPECT_NE(std::string::npos, protocols.find("WM_DELETE_WINDOW")) << protocols;
    EXPECT_EQ(std::string::npos, protocols.find("WM_TAKE_FOCUS")) << protocols;
    EXPECT_NE(std::string::npos, property(window, "WM_HINTS").find("input focus: False"));
}

/// Clicks come when the window manager, which is asked about each first, has let them through: on a busy
/// machine, late.
template <class What>
void expectSoon(const std::type_identity_t<std::vector<What>>& wanted, const std::vector<What>& told) {
    waitUntil([&] { return told.size() >= wanted.size(); });
    EXPECT_EQ(wanted, told);
}

/// How much of a picture has a colour.
double share(const QImage& picture, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixelColor(x, y) == colour ? 1 : 0;
    return static_cast<double>(count) / (picture.width() * picture.height());
}

TEST(CharacterWindow, coversAndHearsItsShapeAlone) {
    CharacterWorld world;
    world.showAt(kPlace);
    Journey::takePicture("character");
    const QImage screen = CharacterWorld::screen();
    EXPECT_EQ(kRed, screen.pixelColor(kPlace + kOnRing));
    EXPECT_EQ(QColor(Qt::blue), screen.pixelColor(kPlace + kInHole));
    EXPECT_EQ(QColor(Qt::blue), screen.pixelColor(kPlace + kInCorner));

    input(at(kPlace + kInCorner) + QStringList{"click", "1"} + at(kPlace + kInHole) +
          QStringList{"click", "1"});
    expectSoon({kPlace + kInCorner, kPlace + kInHole}, world.below.clicks);
    EXPECT_EQ(Lines{}, world.events);

    input(at(kPlace + kOnRing) + QStringList{"click", "1", "sleep", "0.7", "click", "2", "sleep", "0.7",
                                             "keydown", "ctrl", "click", "1", "keyup", "ctrl"});
    expectSoon({pressed("click", 1, 0, kPlace + kOnRing), pressed("click", 4, 0, kPlace + kOnRing),
                pressed("click", 1, 2, kPlace + kOnRing)},
               world.events);
    EXPECT_TRUE(world.below.hasTheFocus());
}

TEST(CharacterWindow, isNotFilledByAFrameThatComesLate) {
    CharacterWorld world;
    const auto windowManager = [](const char* signal) {
        EXPECT_EQ(0, QProcess::execute("pkill", {signal, "-P", QString::number(getppid()), "openbox"}));
    };
    windowManager("-STOP");
    world.ring().place.put(kPlace.x(), kPlace.y());
    world.ring().requests.show();
    letPass(700);
    windowManager("-CONT");
    EXPECT_TRUE(waitUntil([] { return CharacterWorld::screen().pixelColor(kPlace + kOnRing) == kRed; }));
    letPass(300);
    input(at(kPlace + kInHole) + QStringList{"click", "1"});
    expectSoon({kPlace + kInHole}, world.below.clicks);
}

TEST(CharacterWindow, isAsLargeAsTheUserWishes) {
    CharacterWorld world;
    constexpr QPoint kLow(450, 420);
    world.showAt(kLow);
    const auto* const window = CharacterWorld::window<CharacterWindow>();
    for (const int percent : {200, 150, 300, 100, 200}) {
        world.service->setSize(percent);
        const QSize size = QSize(120, 120) * percent / 100;
        const QPoint corner = kLow + QPoint(60, 120) - QPoint(size.width() / 2, size.height());
        const platform::Area area = world.ring().place.area();
        EXPECT_EQ(QRect(corner, size), QRect(area.left, area.top, area.width, area.height)) << percent;
        EXPECT_TRUE(waitUntil([&] { return window->geometry() == QRect(corner, size); })) << percent;
        letPass(200);
        Journey::takePicture(QStringLiteral("character-%1").arg(percent));
        const QImage screen = CharacterWorld::screen();
        EXPECT_EQ(kRed, screen.pixelColor(corner + kOnRing * percent / 100)) << percent;
        EXPECT_EQ(QColor(Qt::blue), screen.pixelColor(corner + kInHole * percent / 100)) << percent;
        EXPECT_EQ(QColor(Qt::blue), screen.pixelColor(corner + kInCorner * percent / 100)) << percent;
    }
    const QPoint corner = window->place();
    input(at(corner + 2 * kInHole) + QStringList{"click", "1"} + at(corner + 2 * kOnRing) +
          QStringList{"click", "1"});
    expectSoon({corner + 2 * kInHole}, world.below.clicks);
    expectSoon({pressed("click", 1, 0, corner + 2 * kOnRing)}, world.events);
}

TEST(CharacterWindow, liesOnTopAndOutsideOfTheTaskBar) {
    CharacterWorld world;
    for (const char* const time : {"at first", "when it comes back"}) {
        world.showAt(kPlace);
        const std::string state = property(*CharacterWorld::window<CharacterWindow>(), "_NET_WM_STATE");
        for (const char* const wanted : {"SKIP_TASKBAR", "SKIP_PAGER", "_NET_WM_STATE_ABOVE"})
            EXPECT_NE(std::string::npos, state.find(wanted)) << wanted << ' ' << time << ": " << state;
        expectNoWishForTheKeyboard(*CharacterWorld::window<CharacterWindow>());
        world.below.raise();
        letPass(200);
        EXPECT_EQ(kRed, CharacterWorld::screen().pixelColor(kPlace + kOnRing)) << time;
        world.ring().requests.hide();
        EXPECT_TRUE(waitUntil([&world] { return !world.ring().place.visible(); }));
    }
}

TEST(CharacterWindow, followsTheHandThatDragsIt) {
    CharacterWorld world;
    world.showAt(kPlace);
    const QPoint grip = kPlace + kOnRing;
    constexpr QPoint kWay(230, -170);
    input(at(grip) + QStringList{"mousedown", "1"} + at(grip + QPoint(30, -10)) + at(grip + kWay) +
          QStringList{"mouseup", "1"});
    expectSoon({pressed("drag", 1, 0, grip), pressed("dropped", 1, 0, grip + kWay)},
               world.events); // and no click
    EXPECT_EQ(kPlace + kWay, QPoint(world.ring().place.area().left, world.ring().place.area().top));
    letPass(200);
    EXPECT_EQ(kRed, CharacterWorld::screen().pixelColor(grip + kWay));
    EXPECT_EQ(QColor(Qt::blue), CharacterWorld::screen().pixelColor(grip));

    const auto ground = [] { return CharacterWorld::window<CharacterWindow>()->ground(); };
    const QPoint middle = world.below.geometry().center();
    EXPECT_EQ((character::Place{middle.x(), middle.y()}), ground().value_or(character::Place{}));
    world.below.showMinimized();
    EXPECT_TRUE(waitUntil([&ground] { return !ground(); })) << "the desktop itself";
}

TEST(CharacterWindow, hidesByItsMenu) {
    CharacterWorld world;
    world.showAt(kPlace);
    world.ring().voice.setLanguageId(0x0409);
    const auto menu = [] { return QApplication::activePopupWidget() != nullptr; };
    const auto open = [&] {
        input(at(kPlace + kOnRing) + QStringList{"click", "3"});
        EXPECT_TRUE(waitUntil(menu));
    };
    open();
    Journey::takePicture("menu");
    input({"key", "Escape"});
    EXPECT_TRUE(waitUntil([&] { return !menu(); }));
    letPass(600); // or the next click would be the second of a double click
    open();
    input({"key", "h"});
    const std::string click = pressed("click", 2, 0, kPlace + kOnRing);
    expectSoon({click, click, "hide 7"}, world.events);
    EXPECT_EQ(QColor(Qt::blue), CharacterWorld::screen().pixelColor(kPlace + kOnRing));
}

TEST(CharacterWindow, isHiddenByWhateverClosesIt) {
    CharacterWorld world;
    world.showAt(kPlace);
    CharacterWorld::window<CharacterWindow>()->close();
    expectSoon({"hide 1"}, world.events);
    EXPECT_FALSE(world.ring().place.visible());
}

TEST(CharacterWindow, tellsOfMonitorsAndOffersTheNextOne) {
    CharacterWorld world;
    const auto change = [](const QString& command) {
        EXPECT_EQ(0, QProcess::execute("xrandr", command.split(' '))) << command.toStdString();
    };
    const auto monitors = [&world](std::vector<platform::Area> areas) {
        EXPECT_TRUE(waitUntil([&] { return world.service->screens() == areas; }));
        EXPECT_TRUE(waitUntil([&] { return !world.events.empty() && world.events.back() == "screens"; }));
        world.events.clear();
    };
    change("--setmonitor left 512/100x768/200+0+0 screen");
    change("--setmonitor right 512/100x600/200+512+0 none");
    monitors({{0, 0, 512, 768}, {512, 0, 512, 600}});
    world.service->setMenu({"&Next", {}});
    world.showAt({700, 200});
    input(at(QPoint(700, 200) + kOnRing) + QStringList{"click", "3"});
    EXPECT_TRUE(waitUntil([] { return QApplication::activePopupWidget() != nullptr; }));
    Journey::takePicture("menu of several monitors");
    input({"key", "n"});
    expectSoon({pressed("click", 2, 0, QPoint(700, 200) + kOnRing), "next"}, world.events);

    world.ring().requests.speak(
        "What a long way to the other end of the room, where all of this fits on one monitor");
    EXPECT_TRUE(waitUntil([] {
        const auto* const bubble = CharacterWorld::window<Bubble>();
        return bubble != nullptr && bubble->isVisible() &&
               QRect(512, 0, 512, 600).contains(bubble->geometry());
    }));
    change("--delmonitor right");
    change("--delmonitor left");
    monitors({{0, 0, 1024, 768}});
}

TEST(CharacterWindow, landsWhereItIsSent) {
    auto data = drawnCharacter();
    const auto travelling = static_cast<std::uint32_t>(data.animations.size());
    character::Frame low = data.animations.back().frames.front();
    low.exitFrame = character::Frame().exitFrame;
    data.animations.push_back({"MoveLeft", character::Transition::None, std::nullopt, {low}});
    data.states.push_back({"MovingLeft", {travelling}});
    CharacterWorld world(data);
    world.showAt({200, 200});
    world.ring().requests.moveTo(600, 200);
    EXPECT_TRUE(waitUntil([] { return CharacterWorld::screen().pixelColor(660, 208) == kRed; }))
        << "where only the standing ring is";
}

TEST(Balloon, isReadableInEveryCornerAndTakesNoFocus) {
    const struct {
        const char* name;
        QPoint place;
        std::string text;
    } kCases[] = {
        {"middle", {450, 400}, "<b>5 & 6</b> &amp; élève, žluťoučký, Ελλάδα \U0001F99C\U0001F600"},
        {"top-left", {0, 0}, "Right here, at last \U0001F44D"},
        {"top-right", {904, 40}, "Hello there, this is a sentence of some length to fill several lines."},
        {"bottom-left", {0, 648}, "مرحبا بالعالم (Brovin 2) كيف الحال؟"},
        {"bottom-right", {904, 648}, "שלום עולם, זה Brovin שמדבר."},
        {"off-the-screen", {-90, 300}, "Where am I?"},
    };
    CharacterWorld world;
    for (const auto& [name, place, text] : kCases) {
        world.showAt(place);
        world.ring().requests.speak(text);
        const auto* const bubble = CharacterWorld::window<Bubble>();
        EXPECT_TRUE(waitUntil([&] { return bubble->isVisible(); })) << name;
        letPass(2600); // until most is said
        Journey::takePicture(QStringLiteral("balloon-") + name);
        const QRect room = QApplication::primaryScreen()->availableGeometry();
        const QRect window = bubble->shape().boundingRect().translated(bubble->place());
        EXPECT_TRUE(room.contains(window)) << name;
        const QRect ring = CharacterWorld::window<CharacterWindow>()->figure();
        EXPECT_FALSE(window.intersects(ring)) << name;
        EXPECT_TRUE(window.adjusted(-3, -3, 3, 3).intersects(ring.intersected(room)))
            << name << ": it touches";
        EXPECT_GT(share(CharacterWorld::screen().copy(window), QColor(255, 255, 225)), 0.5) << name;
        EXPECT_GT(share(CharacterWorld::screen().copy(window), Qt::black), 0.02) << name << ": the text";
        EXPECT_TRUE(world.below.hasTheFocus()) << name;
        expectNoWishForTheKeyboard(*bubble);
        world.ring().requests.stopAll();
        world.ring().requests.hide();
        EXPECT_TRUE(waitUntil([&world] { return !world.ring().place.visible(); }));
    }
}

TEST(Balloon, goesWithItsCharacterUntilItIsClickedAway) {
    CharacterWorld world;
    world.showAt(kPlace);
    world.ring().requests.speak("One two three four five six seven eight nine ten eleven twelve.");
    const auto* const bubble = CharacterWorld::window<Bubble>();
    ASSERT_TRUE(waitUntil([&] { return bubble->isVisible(); }));
    const QPoint before = bubble->place();
    world.ring().place.put(kPlace.x() + 150, world.ring().place.area().top);
    EXPECT_EQ(before + QPoint(150, 0), bubble->place());
    letPass(200);
    input(at(QRect(bubble->place(), bubble->size()).center()) + QStringList{"click", "1"});
    EXPECT_TRUE(waitUntil([&] { return !bubble->isVisible(); }));
    EXPECT_EQ(Lines{}, world.events) << "it is not the character that was clicked";
}

TEST(CharacterService, holdsEventsWhileABoxIsOpenAndEndsACharacterInTheMiddleOfThem) {
    CharacterWorld world;
    world.showAt(kPlace);
    world.busy = true;
    input(at(kPlace + kOnRing) + QStringList{"click", "1", "sleep", "0.7", "click", "1"});
    EXPECT_EQ(Lines{}, world.events);

    int told = 0;
    platform::CharacterEvents events;
    events.click = [&](const platform::CharacterClick& click) {
        ++told;
        world.ring().requests.speak("These words are never finished.");
        world.ring().requests.stop();
        world.ring().requests.play("Jump");
        letPass(300); // as an open box would
        EXPECT_EQ(1, told) << "the next event waits for this one's end";
        world.service->unload(click.id);
    };
    world.service->setEvents(events);
    world.busy = false;
    EXPECT_TRUE(waitUntil([&told] { return told > 0; }));
    letPass(500);
    EXPECT_EQ(1, told) << "nothing more is told of what has been unloaded";
    EXPECT_EQ(nullptr, CharacterWorld::window<CharacterWindow>());
    EXPECT_TRUE(world.service->load(CharacterWorld::kId, "ring.acs"));
}

TEST(CharacterService, unloadsACharacterThatSpeaks) {
    CharacterWorld world;
    world.showAt(kPlace);
    world.ring().requests.speak("One two three four five.");
    ASSERT_TRUE(waitUntil([] { return CharacterWorld::window<Bubble>()->isVisible(); }));
    world.service->unload(CharacterWorld::kId);
    letPass(200);
    EXPECT_EQ(nullptr, CharacterWorld::window<Bubble>());
    EXPECT_EQ(QColor(Qt::blue), CharacterWorld::screen().pixelColor(kPlace + kOnRing));
    EXPECT_EQ(nullptr, world.service->character(CharacterWorld::kId));
    EXPECT_EQ(Lines{}, world.events);
}

} // namespace
} // namespace brovin::tests
