#include "settings/settings.h"

#include "fakes/fake_settings_store.h"

#include <gtest/gtest.h>

namespace brovin::settings {
namespace {

TEST(Settings, standInForMissingKeysOnly) {
    fakes::FakeSettingsStore store;
    Settings settings(store);
    EXPECT_EQ("5", settings.read(setting::kInterval));
    EXPECT_EQ(std::nullopt, settings.stored(setting::kInterval));
    settings.write(setting::kInterval, "");
    EXPECT_EQ("", settings.read(setting::kInterval)) << "an empty text is a text";
    EXPECT_EQ("", settings.stored(setting::kInterval));
    settings.write(setting::kReminder, "Go home");
    EXPECT_EQ("Go home", settings.read(setting::kReminderWhenDue)) << "one key with two fallbacks";
}

TEST(Settings, reportEachRefusalThatIsNewAndGoOn) {
    fakes::FakeSettingsStore store;
    Settings settings(store);
    std::vector<std::string> reports;
    settings.refused = [&reports](const std::string& location) { reports.push_back(location); };
    store.refuses = true;
    settings.write(setting::kKb, "1");
    settings.write(setting::kKb, "2");
    EXPECT_EQ((std::vector<std::string>{"memory"}), reports) << "where the settings are";
    store.refuses = false;
    settings.write(setting::kKb, "3");
    EXPECT_EQ("3", settings.read(setting::kKb));
    store.refuses = true;
    settings.write(setting::kKb, "4");
    EXPECT_EQ(2U, reports.size()) << "full again";
}

TEST(Settings, storeTogetherWhatIsWrittenMeanwhile) {
    fakes::FakeSettingsStore store;
    Settings settings(store);
    {
        const Settings::Together together(settings);
        settings.write(setting::kKb, "1");
        settings.write(setting::kTab, "2");
        settings.write(setting::kKb, "3");
        EXPECT_EQ("3", settings.read(setting::kKb)) << "as if it were stored";
        EXPECT_EQ(0, store.writes);
    }
    EXPECT_EQ(1, store.writes);
    EXPECT_EQ("3 2", store.setting("KB") + " " + store.setting("Tab"));
    settings.write(setting::kTab, "4");
    EXPECT_EQ("4", store.setting("Tab")) << "at once again";
}

} // namespace
} // namespace brovin::settings
