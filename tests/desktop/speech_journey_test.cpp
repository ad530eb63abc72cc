#include "app/program.h"
#include "desktop/journey.h"
#include "desktop/window/options_window.h"
#include "fakes/fake_machine.h"

#include <QAccessible>
#include <QFile>

namespace brovin::tests {
namespace {

using Texts = std::vector<std::string>;

/// The whole program in a real window, opened at a page, over a machine in memory that has a character.
struct PageWorld : fakes::FakeMachine {
    explicit PageWorld(const char* page) {
        QFile language(QStringLiteral(BROVIN_ASSETS "/default.blp"));
        EXPECT_TRUE(language.open(QIODevice::ReadOnly));
        folder.files["default.blp"] = language.readAll().toStdString();
        characters.present = true;
        characters.installed = {"genie.acs", "peedy.acs"};
        settings.set("Tab", page);
        EXPECT_TRUE(program.Form_Load());
        form.mPopRestore.click();
    }
    [[nodiscard]] QWidget* widget(const char* name) const {
        return window.findChild<QWidget*>(QLatin1String(name));
    }
    /// A journey's first step: waits until the window takes the user's keys.
    void open(Journey& journey, Journey::Action then) const {
        journey.then(
            "the window", [this] { return window.isActiveWindow(); }, std::move(then));
    }
    app::Program program{{settings, files, landmarks, folder, dialogs, shell, tray, clipboard, characters,
                          logOn, instance, scanLock, regional, letters, clock, random, pump},
                         {"Brovin", 1, 2, 3},
                         "/opt/brovin"};
    ui::FrmOptions& form = program.frmOptions();
    desktop::OptionsWindow window{form};
};

struct SliderWorld : PageWorld {
    SliderWorld() : PageWorld("3") {}
    /// A place on the track, from 0 at its left end to 1.
    [[nodiscard]] QPoint onTrack(double part) const {
        const ui::Slider::Track& track = form.picSlide.track();
        return widget("picSlide")
            ->mapToGlobal(
                QPoint(qRound(track.left + part * track.width), qRound(track.top + track.height / 2)));
    }
    void dragKnob(int pixels) const {
        const QPoint knob = onTrack(form.picSlide.parts().fillWidth / form.picSlide.track().width);
        const QStringList half{"mousemove_relative", "--", QString::number(pixels / 2), "5", "sleep", "0.1"};
        sendInput(QStringList{"mousemove", QString::number(knob.x()), QString::number(knob.y())} +
                  QStringList{"mousedown", "1", "sleep", "0.1"} + half + half + QStringList{"mouseup", "1"});
    }
};

TEST(SpeechJourney, setsTheFrequencyWithMouseAndKeys) {
    SliderWorld world;
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(world.widget("picSlide"));
    ASSERT_NE(nullptr, told);
    EXPECT_EQ(QAccessible::Slider, told->role());
    EXPECT_EQ("Slider from silent on the left to chatterbox on the right", told->text(QAccessible::Name));

    Journey journey;
    const auto stored = [&](const char* value, Journey::Action act) {
        journey.then(
            value, [&world, value] { return world.settings.setting("SpeechFreq") == value; }, std::move(act));
    };
    world.open(journey, [&] {
        Journey::takePicture("character-page");
        world.dragKnob(900);
    });
    stored("200", [&] {
        Journey::takePicture("character-page-full");
        world.dragKnob(-900);
    });
    stored("0", [&] { clickAt(world.onTrack(0.5)); });
    stored("100", [] { pressKeys({"Right"}); });
    stored("101", [] { pressKeys({"Prior"}); });
    stored("121", [] { pressKeys({"Home"}); });
    stored("0", [] { pressKeys({"End"}); });
    stored("200", [told] {
        EXPECT_EQ(200, told->valueInterface()->currentValue().toInt()) << "what is announced";
        told->valueInterface()->setCurrentValue(42);
    });
    stored("42", nullptr);
    journey.run();
}

TEST(SpeechJourney, saysAndDoesByEnter) {
    PageWorld world("4");
    Texts& requests = world.characters.only.requests;
    requests.clear();
    const auto last = [&requests](const char* request) {
        return [&requests, request] { return !requests.empty() && requests.back() == request; };
    };
    Journey journey;
    world.open(journey, [&] { click(world.widget("txtSay")); });
    journey.then(
        "the focus of the text box", [&] { return world.form.cmdSay.isDefault(); },
        [] { typeText("Hello there", true); });
    journey.then("Enter to say it", last("speak Hello there"), [&] {
        const ui::Place place = world.form.txtSay.place();
        EXPECT_EQ(world.widget("txtSay")->mapToGlobal(QPoint()), QPoint(place.x, place.y));
        click(world.widget("lstAnims"));
    });
    journey.then(
        "the focus of the list", [&] { return world.form.cmdDo.isDefault(); },
        [] {
            Journey::takePicture("speech-page");
            pressKeys({"Home", "Down", "Return"});
        });
    journey.then("Enter to do it", last("play Read"), nullptr);
    journey.run();
    EXPECT_EQ((Texts{"show", "speak Hello there", "show", "play Read"}), requests) << "each once";
}

} // namespace
} // namespace brovin::tests
