// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/JobState.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <vector>

using ExportCore::JobState;
using ExportCore::mayFollow;

namespace {

const std::vector<JobState> ALL = {JobState::Made,         JobState::OpeningInputs, JobState::Measuring,
                                   JobState::MakingOutput, JobState::Starting,      JobState::Running,
                                   JobState::Ending,       JobState::Concluding,    JobState::Checking,
                                   JobState::BrokenOff,    JobState::LettingGo,     JobState::Ended};

/// All that can be reached in one step or more.
std::set<JobState> reachableFrom(JobState start) {
    std::set<JobState> found;
    std::vector<JobState> open = {start};
    while (!open.empty()) {
        const JobState from = open.back();
        open.pop_back();
        for (const JobState to : ALL)
            if (mayFollow(from, to) && found.insert(to).second)
                open.push_back(to);
    }
    return found;
}

std::set<JobState> before(JobState to) {
    std::set<JobState> found;
    std::copy_if(ALL.begin(), ALL.end(), std::inserter(found, found.end()),
                 [to](JobState from) { return mayFollow(from, to); });
    return found;
}

TEST(JobState, EveryStateIsReachedFromTheFirstAndLeadsToTheLast) {
    for (const JobState state : ALL) {
        EXPECT_TRUE(state == JobState::Made || reachableFrom(JobState::Made).count(state)) << static_cast<int>(state);
        EXPECT_TRUE(state == JobState::Ended || reachableFrom(state).count(JobState::Ended)) << static_cast<int>(state);
    }
}

TEST(JobState, NoWayLeadsBack) {
    for (const JobState state : ALL)
        EXPECT_FALSE(reachableFrom(state).count(state)) << static_cast<int>(state);
}

TEST(JobState, WhateverWaitsForAnotherThreadOrTheEngineCanBeBrokenOffAndNothingElse) {
    EXPECT_EQ(before(JobState::BrokenOff),
              (std::set{JobState::OpeningInputs, JobState::Measuring, JobState::MakingOutput, JobState::Starting,
                        JobState::Running, JobState::Ending, JobState::Checking}));
}

TEST(JobState, OnlyARunThatIsConcludedIsChecked) {
    EXPECT_EQ(before(JobState::Checking), std::set{JobState::Concluding});
}

TEST(JobState, NoRunEndsBeforeItHasLetGoOfItsOutput) {
    EXPECT_EQ(before(JobState::Ended), std::set{JobState::LettingGo});
    EXPECT_EQ(before(JobState::LettingGo), (std::set{JobState::Concluding, JobState::Checking, JobState::BrokenOff}));
}

TEST(JobState, OnlyWhatHasStartedIsStopped) {
    EXPECT_EQ(before(JobState::Ending), std::set{JobState::Running});
}

} // namespace
