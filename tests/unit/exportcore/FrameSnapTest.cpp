// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FrameSnap.h"
#include "Kestra/Base/Time.h"
#include "Types/Time.h"
#include <cstdlib>
#include <gtest/gtest.h>

using ExportCore::FrameSnap;

namespace {

Types::Range range(qint64 start, qint64 end) {
    return {KTime(start), KTime(end)};
}

TEST(FrameSnap, MovesBothEndsToTheNearestFrame) {
    EXPECT_EQ(FrameSnap::range(range(1019, 1981), 25), range(1000, 2000));
    EXPECT_EQ(FrameSnap::range(range(1021, 1979), 25), range(1040, 1960));
}

TEST(FrameSnap, KeepsWhatLiesOnFrames) {
    EXPECT_EQ(FrameSnap::range(range(40, 80), 25), range(40, 80));
}

TEST(FrameSnap, LeavesAtLeastOneFrame) {
    EXPECT_EQ(FrameSnap::range(range(1000, 1001), 25), range(1000, 1040));
}

TEST(FrameSnap, IsNeverFurtherThanHalfAMillisecondFromAFrame) {
    const boost::rational<long long> rate(30000, 1001);
    for (qint64 time = 1; time < 4000; time += 7) {
        const std::int64_t start = Types::toAvTime(FrameSnap::range(range(time, 9000), rate).start);
        const std::int64_t frame = Kestra::FramesToTime(Kestra::TimeToFrames(start, rate), rate);
        EXPECT_LE(std::abs(start - frame), Kestra::TICKS_PER_MILLISECOND / 2) << time;
    }
}

TEST(FrameSnap, WithoutARateChangesNothing) {
    EXPECT_EQ(FrameSnap::range(range(11, 23), 0), range(11, 23));
}

} // namespace
