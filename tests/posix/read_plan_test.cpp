#include "posix/read_plan.h"

#include <gtest/gtest.h>

#include <fcntl.h>

namespace brovin::posix {
namespace {

using Names = std::vector<std::string>;

class ReadPlanTest : public testing::Test {
protected:
    static FolderHandle handle() {
        return FolderChain::held(Descriptor(::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
    }

    std::string next(ReadPlan& plan) {
        last_ = plan.next();
        return last_ ? last_->name : "";
    }

    /// Has the next folder read and these found in it; tells its name.
    std::string read(ReadPlan& plan, const Names& found = {}, std::size_t bytes = 0) {
        std::string name = next(plan);
        if (last_)
            plan.done(last_, {handle(), {std::make_unique<char[]>(bytes), bytes, true}}, found);
        return name;
    }

    FolderHandle top_ = handle();
    ReadPlan plan_{{4, 1'000'000}};
    std::shared_ptr<ReadItem> last_;
};

TEST_F(ReadPlanTest, readsInTheOrderInWhichAWalkComesToThem) {
    plan_.add(top_, 0, {"a", "b", "c"});
    EXPECT_EQ("a", read(plan_, {"a1", "a2"}));
    EXPECT_EQ("a1", read(plan_, {"a11"}));
    EXPECT_EQ("a11", read(plan_));
    plan_.add(top_, 0, {"d"});
    EXPECT_EQ("a2", read(plan_));
    EXPECT_EQ("", next(plan_)) << "four are held";
    const auto a = plan_.advanceTo(0, "a");
    EXPECT_TRUE(plan_.take(a).folder);
    EXPECT_EQ("b", read(plan_));
    plan_.dropBelow(1); // the walk has come back from "a" without looking further
    EXPECT_EQ((Names{"c", "d", ""}), (Names{read(plan_), read(plan_), read(plan_)}));
    EXPECT_EQ(3U, plan_.held());
}

TEST_F(ReadPlanTest, makesRoomForWhatComesSooner) {
    plan_.add(top_, 0, {"a", "b", "c", "d"});
    const auto a = (next(plan_), last_);
    EXPECT_EQ((Names{"b", "c", "d"}), (Names{read(plan_), read(plan_), read(plan_, {"below d"})}));
    plan_.done(a, {handle(), {}}, {"a1", "a2"});
    EXPECT_EQ("a1", next(plan_)) << "in the place of d";
    EXPECT_EQ("a2", next(plan_)) << "in the place of c";
    EXPECT_EQ(2U, plan_.planned()) << "c and d are to be read again, and nothing is known below d";
}

TEST_F(ReadPlanTest, passesOverWhatTheWalkPassesOver) {
    plan_.add(top_, 0, {"a", "b", "c"});
    read(plan_, {"b", "x"});
    const auto inHand = (next(plan_), last_); // a/b
    EXPECT_EQ(nullptr, plan_.advanceTo(0, "x")) << "lies deeper";
    EXPECT_EQ(1U, plan_.advanceTo(0, "b")->depth);
    EXPECT_EQ(ReadItem::State::Gone, inHand->state);
    plan_.done(inHand, {handle(), {}}, {"late"});
    EXPECT_EQ((Names{"b", "c", ""}), (Names{read(plan_), read(plan_), read(plan_)}));
}

TEST_F(ReadPlanTest, tellsWhoStillHasWhatIsToBeDeleted) {
    plan_.add(top_, 0, {"a", "b"});
    read(plan_, {"a1", "a2"});
    const auto inHand = (next(plan_), last_);
    EXPECT_EQ(std::vector{inHand}, plan_.drop(0, "a"));
    EXPECT_EQ((Names{"b", ""}), (Names{read(plan_), read(plan_)}));
    EXPECT_TRUE(plan_.drop(0, "missing").empty());
}

TEST_F(ReadPlanTest, keepsToItsBytesButNeverStandsStill) {
    ReadPlan plan({4, 1'000});
    plan.add(top_, 0, {"a", "b"});
    read(plan, Names(1'000, "x"), 5'000);
    EXPECT_EQ("", next(plan)) << "a is more than enough";
    EXPECT_TRUE(plan.take(plan.advanceTo(0, "a")).folder);
    EXPECT_EQ("b", read(plan));
    plan.dropBelow(0);
    EXPECT_EQ(0U, plan.bytes());
    EXPECT_EQ(0U, plan.held() + plan.planned());
}

TEST_F(ReadPlanTest, keepsNoFolderOpenForThoseBelowIt) {
    plan_.add(handle(), 0, {"a"});
    next(plan_);
    EXPECT_TRUE(last_->parent.expired());
    plan_.reopened(top_, 0);
    EXPECT_EQ(top_, last_->parent.lock());
}

} // namespace
} // namespace brovin::posix
