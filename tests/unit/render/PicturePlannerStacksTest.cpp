// SPDX-License-Identifier: GPL-3.0-or-later
// Stacks that stand in the place of a clip.
#include "PlannerFixture.h"
#include <gtest/gtest.h>
#include <map>

namespace Render::Tests {
namespace {

TEST(PicturePlanner, OpensStacksInTheTimeOfTheirPlace) {
    const auto plan = planner({pictures(
        {gap(5), nested({pictures({clip("A", 10), clip("B", 10)}), pictures({gap(12), clip("c", 4)})}, 10, 6)})});
    EXPECT_EQ(seen(plan, 5), "A@6");
    EXPECT_EQ(seen(plan, 9), "B@0");
    EXPECT_EQ(seen(plan, 11), "B@2 c@0");
    EXPECT_EQ(seen(plan, 14), "B@5 c@3");
    EXPECT_EQ(seen(plan, 15), "");
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(11)).parts.front().material), FrameIndex(15))
        << "a stack ends with its place";
}

TEST(PicturePlanner, PlaysStacksFasterBackwardsAndFrozen) {
    const std::vector<Track> inner{pictures({clip("A", 10, 100), clip("B", 10, 200)})};
    const auto fast = planner({pictures({nested(inner, 10, 0, 2)})});
    EXPECT_EQ(seen(fast, 1), "A@102.5"); // the middle of two frames
    EXPECT_EQ(seen(fast, 5), "B@200.5");
    EXPECT_EQ(fast.endOf(fast.sceneAt(FrameIndex(0))), FrameIndex(5));
    const auto backwards = planner({pictures({nested(inner, 20, 20, -1)})});
    EXPECT_EQ(seen(backwards, 0), "B@209");
    EXPECT_EQ(seen(backwards, 9), "B@200");
    EXPECT_EQ(seen(backwards, 10), "A@109");
    EXPECT_EQ(seen(backwards, 19), "A@100");
    EXPECT_EQ(backwards.endOf(backwards.sceneAt(FrameIndex(0))), FrameIndex(10));
    const auto frozen = planner({pictures({nested(inner, 20, 12, 0)})});
    EXPECT_EQ(seen(frozen, 0), "B@201.5");
    EXPECT_EQ(seen(frozen, 19), "B@201.5");
    EXPECT_EQ(frozen.endOf(frozen.sceneAt(FrameIndex(0))), FrameIndex(20));
}

TEST(PicturePlanner, DissolvesBackwardsInAStackThatRunsBackwards) {
    const std::vector<Track> inner{pictures({clip("A", 10), clip("B", 10)}, {dissolve(1, 1, 3)})};
    const auto plan = planner({pictures({nested(inner, 20, 20, -1)})});
    EXPECT_EQ(seen(plan, 6), "B@3");
    EXPECT_EQ(seen(plan, 7), "(B@2 > A@12 at 0.125)");
    EXPECT_EQ(seen(plan, 10), "(B@-1 > A@9 at 0.875)");
    EXPECT_EQ(seen(plan, 11), "A@8");
}

TEST(PicturePlanner, BlendsWhatAFrozenStackShowsInADissolve) {
    const std::vector<Track> inner{pictures({clip("A", 10), clip("B", 10)}, {dissolve(1, 1, 3)})};
    for (const auto& [moment, shown] : std::map<std::int64_t, std::string>{
             {8, "A@7.5"}, {9, "(A@8.5 > B@-1.5 at 0.125)"}, {12, "(A@11.5 > B@1.5 at 0.875)"}, {13, "B@2.5"}}) {
        const auto plan = planner({pictures({nested(inner, 20, moment, 0)})});
        EXPECT_EQ(seen(plan, 0), shown) << moment;
        EXPECT_EQ(seen(plan, 19), shown) << moment;
        EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(0))), FrameIndex(20));
    }
}

TEST(PicturePlanner, HoldsTheFirstAndLastPicturesOfStacksInDissolves) {
    const auto stack = [](std::int64_t frames, std::int64_t start, const Speed& speed = 1) {
        return nested({pictures({clip("A", 5, 100), clip("B", 5, 200)})}, frames, start, speed);
    };
    const auto plan = planner({pictures({stack(10, 0), stack(10, 0)}, {dissolve(1, 2, 2)})});
    EXPECT_EQ(seen(plan, 8), "(B@203 > A@100 at 0.125)");
    EXPECT_EQ(seen(plan, 9), "(B@204 > A@100 at 0.375)");
    EXPECT_EQ(seen(plan, 10), "(B@204 > A@100 at 0.625)");
    EXPECT_EQ(seen(plan, 11), "(B@204 > A@101 at 0.875)");
    EXPECT_TRUE(plan.sceneAt(FrameIndex(10)).isFull) << "nothing below shines through";
    const auto entered = planner({pictures({clip("C", 10), stack(9, 1)}, {dissolve(1, 3, 0)})});
    EXPECT_EQ(seen(entered, 7), "(C@7 > A@100 at 0.166667)");
    EXPECT_EQ(seen(entered, 9), "(C@9 > A@100 at 0.833333)") << "its first frame, which moves from here on";
    EXPECT_EQ(entered.endOf(entered.sceneAt(FrameIndex(7))), FrameIndex(9));
    EXPECT_EQ(seen(entered, 10), "A@101");
    const auto backwards = planner({pictures({stack(10, 10, -1), clip("C", 10)}, {dissolve(1, 0, 2)})});
    EXPECT_EQ(seen(backwards, 9), "A@100");
    EXPECT_EQ(seen(backwards, 11), "(A@100 > C@1 at 0.75)");
    const std::vector<Track> fading{pictures({clip("A", 10)}, {dissolve(1, 4, 0)})};
    const auto faded = planner({pictures({nested(fading, 6, 0, 2)})});
    EXPECT_EQ(seen(faded, 4), "(A@8.5 >  at 0.75)");
    EXPECT_EQ(seen(faded, 5), "(A@8.5 >  at 0.75)") << "the very picture that was last";
    const auto fast = planner({pictures({stack(5, 0, 2), clip("C", 10)}, {dissolve(1, 0, 2)})});
    EXPECT_EQ(seen(fast, 4), "B@202.5") << "which began on a whole frame";
    EXPECT_EQ(seen(fast, 6), "(B@202.5 > C@1 at 0.75)") << "the same";
}

TEST(PicturePlanner, HoldsStacksBeyondTheirContents) {
    const std::vector<Track> inner{pictures({clip("A", 4, 100)}), pictures({gap(1), clip("b", 2)}),
                                   sound({clip("S", 9)})};
    const auto plan = planner({pictures({nested(inner, 8, -2)})});
    EXPECT_EQ(seen(plan, 0), "A@100");
    EXPECT_EQ(seen(plan, 1), "A@100");
    EXPECT_EQ(seen(plan, 3), "A@101 b@0");
    EXPECT_EQ(seen(plan, 5), "A@103");
    EXPECT_EQ(seen(plan, 6), "") << "its sound goes on";
    EXPECT_EQ(seen(plan, 8), "");
    const std::vector<Track> alone{pictures({clip("A", 4, 100)})};
    EXPECT_EQ(seen(planner({pictures({nested(alone, 8)})}), 7), "A@103");
    EXPECT_EQ(seen(planner({pictures({nested(alone, 8, 50, 0)})}), 3), "A@103.5") << "frozen behind its end";
    EXPECT_EQ(seen(planner({pictures({nested({}, 8), clip("C", 2)})}), 3), "") << "nothing to hold";
}

TEST(PicturePlanner, KeepsDeepSpeedsWithinReach) {
    Item item = nested({pictures({clip("A", 1000, 0, {100'000, 99'999})})}, 1000, 0, {99'991, 100'000});
    for (int depth = 0; depth < 12; ++depth)
        item = nested({pictures({item})}, 1000, 0, {99'991, 100'000});
    const auto plan = planner({pictures({item})});
    EXPECT_EQ(seen(plan, 500).substr(0, 4), "A@49");
}

} // namespace
} // namespace Render::Tests
