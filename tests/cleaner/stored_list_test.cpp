#include "cleaner/stored_list.h"

#include "fakes/fake_machine.h"

#include <gtest/gtest.h>

namespace brovin::cleaner {
namespace {

struct StoredListWorld : fakes::FakeMachine {
    settings::Settings options{settings};

    void store(const std::string& key, const std::string& value) { settings.values[{"list", key}] = value; }
    [[nodiscard]] std::string load() const {
        std::string loaded;
        for (const ListEntry& entry : loadList(options, "list", letters))
            loaded += entry.text + "(" + entry.path + ")";
        return loaded;
    }
};

TEST(StoredList, loadsAsManyAsItsNumberSays) {
    const std::string cases[][3] = {
        {"", "", "nothing is nought"},
        {"2", "one()", "an empty entry is dropped"},
        {"3", "one()three()", "and the ones after it stay"},
        {"99", "one()three()", "missing entries are empty"},
        {"-1", "", "fewer than none"},
        {"many", "", "no number"},
        {"70000", "", "more than a list can hold"},
    };
    for (const auto& [number, loaded, why] : cases) {
        StoredListWorld world;
        world.store("Number", number);
        world.store("Entry1", "ONE");
        world.store("Entry2", "");
        world.store("Entry3", "Three");
        EXPECT_EQ(loaded, world.load()) << why;
    }
    EXPECT_EQ("", StoredListWorld().load()) << "no section at all";
}

TEST(StoredList, keepsATrueSpellingOnlyOfTheSameEntry) {
    StoredListWorld world;
    world.store("Number", "2");
    world.store("Entry1", "/share");
    world.store("Path1", "/Share");
    world.store("Entry2", "/photos");
    world.store("Path2", "/Share");
    EXPECT_EQ("/share(/Share)/photos()", world.load()) << "someone has edited the second entry by hand";
}

TEST(StoredList, isStoredByOneWriteAndOutlivesALongerOne) {
    StoredListWorld world;
    saveList(world.options, "list", {{"/One", "/One"}, {"/Two", "/Two"}}, WithPaths::Yes, world.letters);
    EXPECT_EQ(1, world.settings.writes);
    EXPECT_EQ("/one(/One)/two(/Two)", world.load());
    saveList(world.options, "list", {{"three", ""}}, WithPaths::No, world.letters);
    EXPECT_EQ("three()", world.load()) << "what is left of the longer list counts for nothing";
}

} // namespace
} // namespace brovin::cleaner
