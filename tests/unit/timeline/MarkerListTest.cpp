// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/MarkerList.h"
#include "OtioFixture.h"

namespace Timeline::Tests {
namespace {

class MarkerListTest : public OtioFixture {
protected:
    static std::string marked(const std::string& name, double at, double lasting = 0) {
        return R"(,"markers":[)" + objectOf("Marker.2", name, R"(,"marked_range":)" + rangeOf(at, lasting)) + ']';
    }
    static std::string ranged(double start, double count) { return R"(,"source_range":)" + rangeOf(start, count); }
    static std::string played(double speed) {
        return R"(,"effects":[)" + objectOf("LinearTimeWarp.1", "", R"(,"time_scalar":)" + number(speed)) + ']';
    }
    /// All of the timeline, in frames: name@start+duration.
    std::string markers(const std::string& json) const {
        const Reading reading = read(json);
        EXPECT_EQ(inWords(reading), "");
        std::string words;
        for (const Marker& one : markersOf(*reading.document->tracks))
            words += (words.empty() ? "" : " ") + one.name + '@' + inFrames(one.range.start) + '+' +
                     inFrames(one.range.duration);
        return words;
    }
    /// Behind ten frames stands a stack, whose second clip, from its frame 10 on, is marked at 14 and for 2 frames.
    std::string markersOfStack(const std::string& more, double lasting = 2) const {
        const std::string inner = trackOf({clip(0, 10), clip(0, 20, "b", marked("m", 4, lasting))});
        return markers(timelineOf({trackOf({clip(0, 10), stackOf({inner}, more)})}));
    }

private:
    static std::string inFrames(Ticks time) { return number(static_cast<double>(time.Value()) * 25 / TIME_BASE); }
};

TEST_F(MarkerListTest, HasThoseOfStacksWhereTheyAreShown) {
    EXPECT_EQ(markersOfStack(""), "m@24+2");
    EXPECT_EQ(markersOfStack(ranged(10, 20)), "m@14+2");
    EXPECT_EQ(markersOfStack(ranged(10, 20) + played(.5)), "m@18+4");
    EXPECT_EQ(markersOfStack(ranged(20, 20) + played(-1)), "m@14+2") << "from frame 20 back to 14";
    EXPECT_EQ(markersOfStack(ranged(0, 10) + marked("own", 3)), "own@13+0") << "m is behind of what is shown";
}

TEST_F(MarkerListTest, CutsOffWhatIsNotShown) {
    EXPECT_EQ(markersOfStack(ranged(15, 10)), "m@10+1");
    EXPECT_EQ(markersOfStack(ranged(5, 10)), "m@19+1");
    EXPECT_EQ(markersOfStack(ranged(16, 10)), "");
    EXPECT_EQ(markersOfStack(ranged(14, 10), 0), "m@10+0");
    EXPECT_EQ(markersOfStack(ranged(4, 10), 0), "");
}

TEST_F(MarkerListTest, HasOfItemsWhatLiesWithinThem) {
    const auto ofClip = [this](double at, double lasting) {
        return markers(timelineOf({trackOf({clip(0, 10), clip(50, 10, "b", marked("m", at, lasting)), clip(0, 10)})}));
    };
    EXPECT_EQ(ofClip(53, 2), "m@13+2");
    EXPECT_EQ(ofClip(48, 5), "m@10+3");
    EXPECT_EQ(ofClip(58, 5), "m@18+2");
    EXPECT_EQ(ofClip(60, 0), "") << "it belongs to what the clip does not show";
    EXPECT_EQ(ofClip(30, 0), "");
}

TEST_F(MarkerListTest, HasThoseOfTheFrameThatIsFrozen) {
    EXPECT_EQ(markersOfStack(ranged(15, 8) + played(0)), "m@10+8");
    EXPECT_EQ(markersOfStack(ranged(14, 8) + played(0), 0), "m@10+0");
    EXPECT_EQ(markersOfStack(ranged(16, 8) + played(0)), "");
}

TEST_F(MarkerListTest, HasThoseOfTracksAndRootsThatAreCut) {
    const std::string items = clip(0, 20, "a", marked("clip", 8));
    EXPECT_EQ(markers(timelineOf({trackOf({items}, "Video", marked("track", 12) + ranged(5, 15))})),
              "track@7+0 clip@3+0");
    EXPECT_EQ(markers(timelineOf({trackOf({trackOf({items}, "Video", marked("track", 12))})})), "track@12+0 clip@8+0");
    const std::string root = stackOf({trackOf({items}, "Video", marked("track", 12)), trackOf({clip(0, 20)}, "Audio")},
                                     ranged(2, 18) + marked("root", 3));
    EXPECT_EQ(markers(objectOf("Timeline.1", "t", R"(,"tracks":)" + root)), "root@1+0 track@10+0 clip@6+0")
        << "once, however many kinds of tracks there are";
}

TEST_F(MarkerListTest, HasNoneOfWhatIsSwitchedOff) {
    const std::string off = R"(,"enabled":false)";
    const std::string items = clip(0, 20, "a", marked("clip", 8));
    EXPECT_EQ(markers(timelineOf({trackOf({items}, "Video", off + marked("track", 2)),
                                  trackOf({clip(0, 20, "b", off + marked("off", 3)), items}),
                                  trackOf({stackOf({trackOf({items})}, off + marked("stack", 1))})})),
              "clip@28+0");
}

} // namespace
} // namespace Timeline::Tests
