// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ProgressText.h"
#include <gtest/gtest.h>

using Cli::progressText;
using ExportCore::ExportProgress;

namespace {

std::string leftText(qint64 milliseconds) {
    ExportProgress progress;
    progress.remainingMs = milliseconds;
    return progressText(progress);
}

TEST(ProgressText, TellsPercentSpeedAndTimeLeft) {
    ExportProgress progress;
    progress.percent = 37;
    progress.elapsedMs = 25'000;
    progress.remainingMs = 42'000;
    progress.speed = 1.754;
    EXPECT_EQ(progressText(progress), "37 %, 1.75x, 0:42 left");
}

TEST(ProgressText, TellsFramesASecondAndBytes) {
    ExportProgress progress;
    progress.percent = 37;
    progress.framesPerSecond = 48.25;
    progress.bytes = 12'340'000;
    EXPECT_EQ(progressText(progress), "37 %, 48.2 fps, 12.3 MB");
    progress.framesPerSecond = 412.7;
    progress.bytes = 0;
    EXPECT_EQ(progressText(progress), "37 %, 413 fps, 0 bytes");
}

TEST(ProgressText, LeavesOutWhatIsNotKnown) {
    EXPECT_EQ(progressText(ExportProgress()), "0 %");
}

TEST(ProgressText, RoundsTheTimeLeftUpToSeconds) {
    EXPECT_EQ(leftText(0), "0 %, 0:00 left");
    EXPECT_EQ(leftText(1), "0 %, 0:01 left");
    EXPECT_EQ(leftText(59'000), "0 %, 0:59 left");
    EXPECT_EQ(leftText(59'001), "0 %, 1:00 left");
}

TEST(ProgressText, WritesHoursWhereThereAreAny) {
    EXPECT_EQ(leftText(3'599'000), "0 %, 59:59 left");
    EXPECT_EQ(leftText(3'600'000), "0 %, 1:00:00 left");
    EXPECT_EQ(leftText(36'125'000), "0 %, 10:02:05 left");
}

TEST(ProgressBar, FitsEveryWidthFromTwentyColumnsOn) {
    ExportProgress longest;
    longest.percent = 100;
    longest.speed = 123.45;
    longest.remainingMs = 359'999'000;
    longest.framesPerSecond = 12'345;
    longest.bytes = 999'000'000;
    for (int columns = 19; columns < 200; ++columns) {
        for (const int percent : {0, 7, 100}) {
            longest.percent = percent;
            const std::string line = Cli::progressBar(longest, columns);
            EXPECT_LE(line.size(), static_cast<std::size_t>(columns)) << line;
            EXPECT_NE(line.find(std::to_string(percent) + " %"), std::string::npos) << line;
        }
    }
}

TEST(ProgressBar, LeavesOutSpeedThenBarThenTime) {
    ExportProgress progress;
    progress.percent = 50;
    progress.speed = 1.5;
    progress.remainingMs = 42'000;
    EXPECT_EQ(Cli::progressBar(progress, 80), "[###############---------------] 50 %, 1.50x, 0:42 left");
    EXPECT_EQ(Cli::progressBar(progress, 34), "[####-----] 50 %, 1.50x, 0:42 left");
    EXPECT_EQ(Cli::progressBar(progress, 25), "50 %, 1.50x, 0:42 left");
    EXPECT_EQ(Cli::progressBar(progress, 21), "50 %, 0:42 left");
    EXPECT_EQ(Cli::progressBar(progress, 13), "[###---] 50 %");
}

TEST(ProgressBar, LeavesOutFramesThenBytesBeforeAllElse) {
    ExportProgress progress;
    progress.percent = 50;
    progress.speed = 1.5;
    progress.remainingMs = 42'000;
    progress.framesPerSecond = 48.2;
    progress.bytes = 12'300'000;
    EXPECT_EQ(Cli::progressBar(progress, 80),
              "[###############---------------] 50 %, 48.2 fps, 1.50x, 12.3 MB, 0:42 left");
    EXPECT_EQ(Cli::progressBar(progress, 44), "[#####-----] 50 %, 1.50x, 12.3 MB, 0:42 left");
    EXPECT_EQ(Cli::progressBar(progress, 34), "[####-----] 50 %, 1.50x, 0:42 left");
}

} // namespace
