// SPDX-License-Identifier: GPL-3.0-or-later
// How the transcoder takes a runner, holds it and lets it go.
#include "component/transcoder-outcome/OutcomeFixture.h"
#include "support/TimerCatcher.h"
#include <stdexcept>

namespace {

std::string messageOf(const std::exception_ptr& caught) {
    try {
        if (caught)
            std::rethrow_exception(caught);
    } catch (const std::exception& exception) {
        return exception.what();
    }
    return "nothing";
}

} // namespace

TEST_F(Outcome, TheRunnerIsStartedBeforeItsSignalsAreConnectedInOrder) {
    start();
    EXPECT_EQ(steps, (Steps{"log 259", "made", "start", "connect started", "connect progressChanged", "connect stopped",
                            "connect startFailed", "connect processingFailed", "log 355"}));
}

TEST_F(Outcome, WhatTheRunnerEmitsInsideItsStartIsNotHeard) {
    FakeRunner::script().emitAllFromStart = true;
    initialize();
    writeOutput();
    makeReady();
    EXPECT_EQ(runner().starts, 1);
    EXPECT_EQ(emissions, Signals());
    EXPECT_EQ(tags(), (std::vector<int>{259, 355}));
    EXPECT_TRUE(QFileInfo::exists(output()));
    runner().emitAll();
    EXPECT_EQ(emissions, (Signals{"started", "progress", "stopped", "failed", "stopped", "failed", "stopped"}));
}

TEST_F(Outcome, TheRunnerGetsTheScratchDirectory) {
    start();
    EXPECT_TRUE(QFileInfo(runner().temporaryDirectory).isDir());
}

TEST_F(Outcome, ALaterRunnerTakesThePlaceOfTheEarlierBeforeItStarts) {
    // Streams that are never marked as taken allow a second attempt.
    model.videoStreams.refuseChanges(true);
    model.audioStreams.refuseChanges(true);
    start();
    steps.clear();
    model.videoStreams.setVersion(1);
    TestSupport::turnEventLoop();
    EXPECT_EQ(Steps(steps.begin(), steps.begin() + 4), (Steps{"log 259", "made", "destroyed", "start"}));
}

TEST_F(Outcome, ALaterAttemptHasAScratchDirectoryOfItsOwn) {
    model.videoStreams.refuseChanges(true);
    model.audioStreams.refuseChanges(true);
    start();
    const QString first = runner().temporaryDirectory;
    bool firstIsThere = true;
    FakeRunner::script().onStep = [&](const std::string& step) {
        if (step == "made")
            firstIsThere = QFileInfo::exists(first);
    };
    model.videoStreams.setVersion(1);
    TestSupport::turnEventLoop();
    EXPECT_FALSE(firstIsThere) << "it went before the second runner was made";
    EXPECT_NE(runner().temporaryDirectory, first);
    EXPECT_TRUE(QFileInfo(runner().temporaryDirectory).isDir());
}

TEST_F(Outcome, DestructionTakesTheDescriptionsThenTheScratchDirectoryThenTheRunner) {
    start();
    const QString scratch = runner().temporaryDirectory;
    ASSERT_EQ(model.composition.exportedVideos().size(), 1U);
    bool seen = false;
    FakeRunner::script().onStep = [&](const std::string& step) {
        ASSERT_EQ(step, "destroyed");
        seen = true;
        EXPECT_FALSE(QFileInfo::exists(scratch));
        EXPECT_TRUE(model.composition.exportedVideos().empty());
        EXPECT_TRUE(model.composition.exportedAudios().empty());
        EXPECT_TRUE(model.fastTrack.isSuppressed()) << "the suppression ends last";
    };
    transcoder.reset();
    EXPECT_TRUE(seen);
    EXPECT_FALSE(model.fastTrack.isSuppressed());
}

TEST_F(Outcome, NothingIsAttemptedAnyMoreWhileTheRunnerIsDestroyed) {
    // Streams that are never marked as taken allow a second attempt.
    model.videoStreams.refuseChanges(true);
    model.audioStreams.refuseChanges(true);
    start();
    FakeRunner::script().onStep = [](const std::string& step) {
        if (step == "destroyed")
            TestSupport::turnEventLoop();
    };
    model.videoStreams.setVersion(1);
    transcoder.reset();
    EXPECT_EQ(tags(), std::vector<int>());
}

TEST_F(Outcome, StopReachesTheRunnerEachTimeAndTellsNothing) {
    start();
    transcoder->stop();
    EXPECT_EQ(runner().stops, 1);
    transcoder->stop();
    EXPECT_EQ(runner().stops, 2);
    EXPECT_EQ(emissions, Signals());
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(Outcome, AnExceptionOfMakingTheRunnerLeavesTheAttempt) {
    const TestSupport::TimerCatcher catcher;
    FakeRunner::script().errorOfMaking = std::make_exception_ptr(std::runtime_error("no runner"));
    initialize();
    makeReady();
    EXPECT_EQ(messageOf(catcher.caught), "no runner");
    EXPECT_EQ(tags(), std::vector<int>{259});
    EXPECT_EQ(emissions, Signals());
    EXPECT_EQ(FakeRunner::current(), nullptr);
}

TEST_F(Outcome, AnExceptionOfTheRunnersStartLeavesTheAttemptUnconnected) {
    const TestSupport::TimerCatcher catcher;
    FakeRunner::script().errorOfStart = std::make_exception_ptr(std::runtime_error("no start"));
    initialize();
    makeReady();
    EXPECT_EQ(messageOf(catcher.caught), "no start");
    EXPECT_EQ(steps, (Steps{"log 259", "made", "start"}));
    EXPECT_EQ(emissions, Signals());
    transcoder->stop();
    EXPECT_EQ(runner().stops, 1) << "the transcoder holds the runner all the same";
}

TEST_F(Outcome, ARunWithoutARunnerIsAnErrorAndNoCrash) {
    const TestSupport::TimerCatcher catcher;
    FakeRunner::script().makeNone = true;
    initialize();
    makeReady();
    EXPECT_NE(messageOf(catcher.caught).find("there is no runner"), std::string::npos) << messageOf(catcher.caught);
    EXPECT_EQ(tags(), std::vector<int>{259});
    EXPECT_EQ(emissions, Signals());
}

TEST_F(Outcome, AnAttemptAfterTheEndFindsTheStreamsTaken) {
    start();
    Q_EMIT runner().stopped();
    steps.clear();
    model.videoStreams.setVersion(1);
    TestSupport::turnEventLoop();
    EXPECT_EQ(steps, Steps());
}
