#include "app/run_key.h"

#include "fakes/fake_machine.h"

#include <gtest/gtest.h>

namespace brovin::app {
namespace {

struct RunKeyWorld : fakes::FakeMachine {
    ui::FrmOptions form;
    RunKey runKey{form, registry, "/opt/my programs/brovin"};
};

TEST(RunKey, turnsTheEntryOverWhateverTheBoxShows) {
    // What the box shows, and the entry before and after
    constexpr std::tuple<int, std::string_view, std::string_view, std::string_view> kCases[] = {
        {1, "", "/opt/my programs/brovin", "as one expects, and unquoted"},
        {0, "", "/opt/my programs/brovin", "the box was wrong"},
        {1, "/opt/my programs/brovin", "", "the box was wrong"},
        {0, "/old/place/brovin", "", "an entry from before the program was moved"},
    };
    for (const auto& [box, before, after, why] : kCases) {
        RunKeyWorld world;
        world.form.chkStartWindows.setValue(box);
        if (!before.empty())
            world.registry.values["Brovin"] = before;
        EXPECT_EQ(!before.empty(), world.runKey.present()) << why;
        world.runKey.chkStartWindows_Click();
        EXPECT_EQ(!after.empty(), world.runKey.present()) << why;
        EXPECT_EQ(after, world.registry.values["Brovin"]) << why;
    }
}

TEST(RunKey, leavesTheEntryAloneWhileTheProgramStartsOrIsRefused) {
    RunKeyWorld world;
    world.form.loading = true;
    world.runKey.chkStartWindows_Click();
    EXPECT_FALSE(world.runKey.present());
    world.form.loading = false;
    world.registry.refuses = true;
    world.runKey.chkStartWindows_Click();
    EXPECT_FALSE(world.runKey.present());
    world.registry.values["Brovin"] = "";
    EXPECT_FALSE(world.runKey.present()) << "an empty value starts nothing";
}

} // namespace
} // namespace brovin::app
