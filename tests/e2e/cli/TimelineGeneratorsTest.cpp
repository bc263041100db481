// SPDX-License-Identifier: GPL-3.0-or-later
// "render" of timelines with what is made while it is shown.
#include "RenderedTimelines.h"

using namespace TestCli;

namespace {

TEST_F(RenderedTimelines, ShowWhatIsMade) {
    const auto found =
        rendered(write(clipOf("a", "both.mov", 2, 5) + ',' + madeOf("SMPTEBars", 10) + ',' + madeOf("black", 10), {}));
    ASSERT_EQ(found.video->frames.size(), 25U);
    EXPECT_GT(found.video->frames[8].luma, 40);
    EXPECT_LT(found.video->frames[20].luma, 17);
}

TEST_F(RenderedTimelines, TellWhereWhatIsMadeIsNeitherSeenNorHeard) {
    const QString errors = render(write(madeOf("tone", 5), madeOf("SMPTEBars", 5))).errors;
    EXPECT_TRUE(errors.contains(QStringLiteral("a tone stands among pictures"))) << errors.toStdString();
    EXPECT_TRUE(errors.contains(QStringLiteral("bars stand among sound"))) << errors.toStdString();
}

TEST_F(RenderedTimelines, TellWhereNothingIsSeen) {
    const auto isTold = [](const std::string& pictures) {
        return render(write(pictures, {})).errors.contains(QStringLiteral("None of the inputs has a picture"));
    };
    EXPECT_FALSE(isTold(madeOf("SMPTEBars", 5)));
    EXPECT_TRUE(isTold(gapOf(5)));
    EXPECT_TRUE(isTold(clipOf("a", "both.mov", 0, 5, R"(,"enabled":false)")));
    EXPECT_FALSE(isTold(clipOf("a", "both.mov", 0, 5)));
}

TEST_F(RenderedTimelines, PlayWhatIsMadeBeforeItsCutAndAtAnySpeed) {
    const std::string cut = write({}, madeOf("silence", 25) + ',' + dissolveOf(10, 10) + ',' +
                                          madeOf("tone", 25, warpOf("LinearTimeWarp.1", 2)));
    EXPECT_NEAR(cyclesOf(cut), 1400, 15) << "1000 Hz from the beginning of the fade on";
}

} // namespace
