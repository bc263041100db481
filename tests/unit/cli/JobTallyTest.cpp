// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/JobTally.h"
#include "cli/ErrorOutput.h"
#include <csignal>
#include <gtest/gtest.h>

using Cli::JobTally;

namespace {

/// What it tells on the way is another test's.
class JobTallies : public ::testing::Test {
protected:
    static void SetUpTestSuite() { Cli::ErrorOutput::beQuiet(); }

    JobTally tally{3};
};

TEST_F(JobTallies, EndWithASignalThatCameBetweenTwoJobs) {
    tally.end(0, "a", Cli::EXIT_DONE);
    tally.stop(SIGTERM);
    EXPECT_EQ(tally.exitCode(), 143);
    EXPECT_EQ(tally.summary(), "3 jobs: 1 done, 2 not begun");
}

TEST_F(JobTallies, EndWellWhereTheSignalCameTooLate) {
    for (std::size_t job = 0; job < 3; ++job)
        tally.end(job, "a", Cli::EXIT_DONE);
    tally.stop(SIGINT);
    EXPECT_EQ(tally.exitCode(), 0);
}

TEST_F(JobTallies, TellWhatFailedFromWhatWasStopped) {
    tally.end(0, "a", Cli::EXIT_EXPORT_FAILED);
    tally.end(1, "b", Cli::EXIT_SIGNAL_BASE + SIGINT);
    tally.stop(SIGINT);
    EXPECT_EQ(tally.exitCode(), 130);
    EXPECT_EQ(tally.summary(), "3 jobs: 0 done, 1 failed (number 1), 1 stopped (number 2), 1 not begun");
}

} // namespace
