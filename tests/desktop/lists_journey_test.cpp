#include "desktop/real_input.h"
#include "desktop/scan_steps.h"

#include <QCheckBox>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>

#include <filesystem>
#include <fstream>

namespace brovin::tests {
namespace {

TEST(ListsJourney, suggestsNamesForAnEmptyList) {
    DesktopWorld world;
    world.start();
    world.form().mPopRestore.click();
    const auto box = [&world](const char* name) {
        return world.program->window().findChild<QWidget*>(QLatin1String("chk") + name);
    };
    Journey journey;
    journey.then(
        "the window", [&world] { return world.program->window().isActiveWindow(); },
        [&world] { click(world.widget("imgTabs1")); });
    journey.then(
        "the button", [&world] { return shownAndReady(world.widget("cmdStarter")); },
        [&world] {
            Journey::takePicture("no-names");
            click(world.widget("cmdStarter"));
        });
    journey.then(
        "the suggestions", [&box] { return shownAndReady(box("desktop.ini")); },
        [&box] {
            Journey::takePicture("starter-names");
            const QWidget* caution = box("desktop.ini");
            clickAt(caution->mapToGlobal(QPoint(10, caution->height() / 2)));
        });
    journey.then(
        "the tick", [&box] { return qobject_cast<QCheckBox*>(box("desktop.ini"))->isChecked(); },
        [&world] { click(world.widget("cmdAddThese")); });
    journey.then(
        "the names on the list", [&world] { return world.form().lstFiles.count() > 5; },
        [&world] {
            const auto* list = qobject_cast<QListWidget*>(world.widget("lstFiles"));
            clickAt(list->viewport()->mapToGlobal(list->visualItemRect(list->item(0)).center()));
        });
    journey.then(
        "what is known of the first one", [&world] { return world.form().lstFiles.selected() == 0; },
        [&world] {
            letPass(100);
            Journey::takePicture("known-name");
            const auto* known = qobject_cast<QLabel*>(world.widget("sbKnown"));
            EXPECT_TRUE(known->text().contains("Finder")) << known->text().toStdString();
        });
    journey.run();
    EXPECT_EQ(nullptr, box("desktop.ini")) << "its window is gone";
}

TEST(ListsJourney, reachesAFolderThatNoPickerShows) {
    DesktopWorld world;
    world.makeFile("Share/plain/Thumbs.db");
    const std::string odd = world.path("Share").toStdString() + "/caf\xE9";
    std::filesystem::create_directories(odd);
    std::ofstream(odd + "/Thumbs.db") << "x";
    world.start();
    world.form().lstFiles.setItems({{"thumbs.db", 0}});
    world.form().mPopRestore.click();

    Journey journey;
    add<QFileDialog>(journey, world, "cmdAddFolder", world.path("Share"));
    journey.then(
        "the list of folders", [] { return shownAndReady(openDialog<QInputDialog>()); },
        [] {
            Journey::takePicture("unshown-folders");
            pressKeys({"Down", "Return"});
        });
    journey.then(
        "the folder in the list", [&world] { return world.form().lstFolders.count() == 1; },
        [&world] { click(world.widget("cmdNuke")); });
    closeMessage(journey, "unshown-folders-result", [](const QString& /*text*/) {});
    journey.run();
    EXPECT_FALSE(std::filesystem::exists(odd + "/Thumbs.db"));
    EXPECT_TRUE(std::filesystem::remove(odd)) << "the toolkit cannot tidy it up either";
    EXPECT_TRUE(world.exists("Share/plain/Thumbs.db"));
}

} // namespace
} // namespace brovin::tests
