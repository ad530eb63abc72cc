#include "app/log_on.h"

#include "fakes/fake_machine.h"

#include <gtest/gtest.h>

namespace brovin::app {
namespace {

struct LogOnWorld : fakes::FakeMachine {
    ui::FrmOptions form;
    LogOn subject{form, logOn, "/opt/my programs/brovin"};
};

TEST(LogOn, turnsTheEntryOverWhateverTheBoxShows) {
    // What the box shows, and the entry before and after
    constexpr std::tuple<int, std::string_view, std::string_view, std::string_view> kCases[] = {
        {1, "", "/opt/my programs/brovin", "as one expects, and unquoted"},
        {0, "", "/opt/my programs/brovin", "the box was wrong"},
        {1, "/opt/my programs/brovin", "", "the box was wrong"},
        {0, "/old/place/brovin", "", "an entry from before the program was moved"},
    };
    for (const auto& [box, before, after, why] : kCases) {
        LogOnWorld world;
        world.form.chkStartWindows.setValue(box);
        world.logOn.program = before;
        EXPECT_EQ(!before.empty(), world.subject.starts()) << why;
        world.subject.chkStartWindows_Click();
        EXPECT_EQ(after, world.logOn.program) << why;
    }
}

TEST(LogOn, leavesTheEntryAloneWhileTheProgramStartsOrIsRefused) {
    LogOnWorld world;
    world.form.loading = true;
    world.subject.chkStartWindows_Click();
    EXPECT_FALSE(world.subject.starts());
    world.form.loading = false;
    world.logOn.refuses = true;
    world.subject.chkStartWindows_Click();
    EXPECT_FALSE(world.subject.starts());
}

} // namespace
} // namespace brovin::app
