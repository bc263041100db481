// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlannerFixture.h"
#include <gtest/gtest.h>

namespace Render::Tests {
namespace {

TEST(PicturePlanner, ShowsItemsOneAfterTheOther) {
    const auto plan = planner({pictures({clip("A", 10, 100), gap(5), clip("B", 10)})});
    EXPECT_EQ(seen(plan, 0), "A@100");
    EXPECT_EQ(seen(plan, 9), "A@109");
    EXPECT_EQ(seen(plan, 10), "");
    EXPECT_EQ(seen(plan, 15), "B@0");
    EXPECT_EQ(seen(plan, 24), "B@9");
    EXPECT_EQ(seen(plan, 25), "");
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(3))), FrameIndex(10));
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(10))), FrameIndex(15));
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(25))), FrameIndex(INT64_MAX));
}

TEST(PicturePlanner, LooksThroughWhatHidesNothing) {
    const auto plan =
        planner({pictures({clip("A", 30)}), pictures({gap(5), clip("b", 5), clip("C", 5), clip("d", 5)})});
    EXPECT_EQ(seen(plan, 4), "A@4");
    EXPECT_EQ(seen(plan, 5), "A@5 b@0");
    EXPECT_EQ(seen(plan, 10), "C@0") << "what is hidden is not shown";
    EXPECT_EQ(seen(plan, 15), "A@15 d@0");
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(10))), FrameIndex(15));
}

TEST(PicturePlanner, LeavesOutWhatIsDisabledOrMissing) {
    Item off = clip("B", 5);
    off.enabled = false;
    Item missing = clip("C", 5);
    std::get<Timeline::Clip>(missing.content).media.target = Timeline::MissingMedia{"x", "is not there"};
    const auto plan = planner({pictures({clip("A", 20)}), pictures({off, missing}),
                               pictures({clip("D", 20)}, {}, false), sound({clip("S", 20)})});
    for (const int frame : {0, 5, 12})
        EXPECT_EQ(seen(plan, frame), "A@" + std::to_string(frame));
}

TEST(PicturePlanner, DissolvesWithMaterialBeyondTheCut) {
    const auto plan = planner({pictures({clip("A", 10, 50), clip("B", 10, 70)}, {dissolve(1, 2, 2)})});
    EXPECT_EQ(seen(plan, 7), "A@57");
    EXPECT_EQ(seen(plan, 8), "(A@58 > B@68 at 0.125)");
    EXPECT_EQ(seen(plan, 11), "(A@61 > B@71 at 0.875)");
    EXPECT_EQ(seen(plan, 12), "B@72");
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(0))), FrameIndex(8));
    EXPECT_EQ(plan.endOf(plan.sceneAt(FrameIndex(8))), FrameIndex(10)) << "the cut itself ends a scene, too";
    const Scene scene = plan.sceneAt(FrameIndex(9));
    EXPECT_TRUE(scene.isFull);
    EXPECT_EQ(plan.endOf(scene.parts.front().from.front().material), FrameIndex(12));
}

TEST(PicturePlanner, DissolvesIntoNothingAndOverOthers) {
    const auto plan = planner(
        {pictures({clip("A", 30)}), pictures({gap(10), clip("B", 10)}, {dissolve(1, 1, 1), dissolve(2, 2, 0)})});
    EXPECT_EQ(seen(plan, 9), "A@9 ( > B@-1 at 0.25)");
    EXPECT_EQ(seen(plan, 11), "B@1");
    EXPECT_EQ(seen(plan, 19), "A@19 (B@9 >  at 0.75)");
}

TEST(PicturePlanner, FindsItsWayAmongTenThousandItems) {
    std::vector<Item> items;
    for (int i = 0; i < 10'000; ++i)
        items.push_back(clip("A", 2, i));
    const auto plan = planner({pictures(items)});
    for (int i = 0; i < 10'000; ++i) {
        const Scene scene = plan.sceneAt(FrameIndex(2 * i));
        ASSERT_EQ(plan.endOf(scene), FrameIndex(2 * i + 2));
        ASSERT_EQ(scene.parts.front().material.map.here, Ticks(2 * i * FRAME));
        ASSERT_EQ(scene.parts.front().material.map.there, Ticks(i * FRAME));
    }
}

} // namespace
} // namespace Render::Tests
