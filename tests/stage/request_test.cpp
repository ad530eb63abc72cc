#include "character/stage/request.h"

#include <gtest/gtest.h>

#include <string_view>

namespace brovin::character {
namespace {

TEST(StopTypes, areReadFromTheirNames) {
    const struct {
        std::string_view names;
        StopTypes types;
    } cases[] = {
        {"Play", kStopPlay},
        {"move,SPEAK", kStopMove | kStopSpeak},
        {" Play , Speak ", kStopPlay | kStopSpeak},
        {"Get,NonQueuedGet", 0},
        {"Dance", 0},
        {",,Move,", kStopMove},
        {"", kStopEverything},
    };
    for (const auto& [names, types] : cases)
        EXPECT_EQ(types, parseStopTypes(names)) << names;
}

} // namespace
} // namespace brovin::character
