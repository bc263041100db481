// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures that come at changing distances, counted in what was exported.
#include "Exported.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <algorithm>
#include <gtest/gtest.h>

using ExportCore::ExportOutcome;
using TestMedia::ProbedMedia;
using Rate = boost::rational<long long>;

namespace {

class VariableRate : public ::testing::Test {
protected:
    /// Pictures with the luma codes of their numbers at times that `seconds` tells from N.
    ProbedMedia exported(int frames, const std::string& seconds, const std::string& extension = "mp4",
                         const std::vector<std::string>& settings = {}) {
        const std::string input = folder / ("in." + extension);
        TestMedia::runFfmpeg({"-f", "lavfi", "-i",
                              "nullsrc=s=16x16:r=100,format=yuv420p,geq=lum='40+8*mod(N,16)':cb=128:cr=128,"
                              "trim=end_frame=" +
                                  std::to_string(frames) + ",scale=96:64:flags=neighbor,settb=1/90000,setpts='90000*(" +
                                  seconds + ")'",
                              "-fps_mode", "passthrough", "-enc_time_base", "1:90000", "-c:v", "libx264", "-preset",
                              "ultrafast", "-crf", "16", "-video_track_timescale", "90000", input});
        const std::string output = folder / (extension + ".out.mkv");
        auto request = TestExport::requestOfPictures(input, "mkv-ffv1-flac", output);
        request.settings = settings;
        outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
        return TestMedia::probe(output);
    }

    /// How many pictures of the source are to be seen.
    static int shown(const ProbedMedia& media) {
        const std::vector<int> numbers = media.numbers();
        return 1 + static_cast<int>(std::count_if(numbers.begin() + 1, numbers.end(),
                                                  [&](const int& number) { return number != *(&number - 1); }));
    }

    const TestMedia::Folder folder;
    ExportOutcome outcome;
};

TEST_F(VariableRate, OfATelephoneThatJittersShowsEveryPictureOnce) {
    for (const char* extension : {"mp4", "mkv"}) {
        const ProbedMedia media = exported(150, "N/30+0.006*sin(N*N)", extension);
        EXPECT_EQ(media.video->rate, Rate(30)) << extension;
        const std::vector<int> numbers = media.numbers();
        ASSERT_EQ(numbers.size(), 150U) << extension;
        for (int frame = 0; frame < 150; ++frame)
            ASSERT_EQ(numbers[static_cast<std::size_t>(frame)], frame % 16) << "frame " << frame;
    }
}

TEST_F(VariableRate, OfBurstsIsTheLowestThatShowsNearlyAllAndIsSaid) {
    // 25 and 40 frames a second by turns, seven pictures each.
    const ProbedMedia media = exported(63, "floor(N/14)*0.455+if(lt(mod(N,14),7),mod(N,14)/25,0.28+(mod(N,14)-7)/40)");
    EXPECT_GE(shown(media), 60);
    EXPECT_GE(media.video->rate, Rate(30));
    EXPECT_LE(media.video->rate, Rate(48));
    ASSERT_EQ(outcome.notes.size(), 1);
    EXPECT_TRUE(outcome.notes.front().contains(QStringLiteral("variable frame rate, shown at")))
        << outcome.notes.front().toStdString();
}

TEST_F(VariableRate, IsSaidToBeShownAtTheRateThatWasOrdered) {
    const std::string times = "floor(N/14)*0.455+if(lt(mod(N,14),7),mod(N,14)/25,0.28+(mod(N,14)-7)/40)";
    const ProbedMedia media = exported(63, times, "mp4", {"frame-rate=100"});
    EXPECT_EQ(media.video->rate, Rate(100));
    EXPECT_EQ(shown(media), 63);
    ASSERT_EQ(outcome.notes.size(), 1);
    EXPECT_TRUE(outcome.notes.front().endsWith(QStringLiteral("variable frame rate, shown at 100 frames a second")))
        << outcome.notes.front().toStdString();
}

TEST_F(VariableRate, OfFilmAndThenSixtyLosesNothing) {
    const ProbedMedia media = exported(209, "if(lt(N,89),N/24,89/24+(N-89)/60)");
    EXPECT_EQ(media.video->rate, Rate(60));
    EXPECT_EQ(shown(media), 209);
    EXPECT_EQ(outcome.notes.size(), 1);
}

TEST_F(VariableRate, ThatIsNextToAStandardOneIsThatOne) {
    const ProbedMedia media = exported(100, "N/24.93");
    EXPECT_EQ(media.video->rate, Rate(25));
    EXPECT_EQ(shown(media), 100);
    EXPECT_TRUE(outcome.notes.isEmpty());
}

TEST_F(VariableRate, OfAHighSpeedCameraStays) {
    const ProbedMedia media = exported(240, "N/120");
    EXPECT_EQ(media.video->rate, Rate(120));
    EXPECT_EQ(shown(media), 240);
    EXPECT_TRUE(outcome.notes.isEmpty());
}

TEST_F(VariableRate, OfASlideShowIsItsOwn) {
    const ProbedMedia media = exported(6, "N");
    EXPECT_EQ(media.video->rate, Rate(1));
    EXPECT_EQ(shown(media), 6);
}

} // namespace
