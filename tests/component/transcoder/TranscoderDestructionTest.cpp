// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/transcoder/TranscoderFixture.h"
#include <stdexcept>

namespace {

/// The messages of a kind from now on.
class Messages {
public:
    explicit Messages(EditorFakes::BusTrace& trace) {
        trace.onMessage = [this](const std::string& message) { heard.push_back(message); };
        bus = &trace;
    }
    ~Messages() { bus->onMessage = nullptr; }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    std::vector<std::string> of(const std::string& beginning) const {
        std::vector<std::string> found;
        for (const auto& message : heard)
            if (message.compare(0, beginning.size(), beginning) == 0)
                found.push_back(message);
        return found;
    }

private:
    EditorFakes::BusTrace* bus;
    std::vector<std::string> heard;
};

} // namespace

TEST_F(TranscoderTest, DestroyedUnusedAsksOnceToLiftTheSuppression) {
    const Messages messages(bus);
    transcoder.reset();
    EXPECT_EQ(messages.of("bus Change fast track"),
              std::vector<std::string>{"bus Change fast track: +active -suppressed"});
    EXPECT_TRUE(messages.of("bus Change composition").empty());
    EXPECT_FALSE(model.fastTrack.isSuppressed());
}

TEST_F(TranscoderTest, DestroyedTakesItsDescriptionsBackVideoFirst) {
    initialize();
    const Messages messages(bus);
    transcoder.reset();
    EXPECT_EQ(messages.of("bus Change composition"),
              (std::vector<std::string>{"bus Change composition: 0 video and 1 audio exports",
                                        "bus Change composition: 0 video and 0 audio exports"}));
    EXPECT_TRUE(model.composition.exportedVideos().empty());
    EXPECT_TRUE(model.composition.exportedAudios().empty());
}

TEST_F(TranscoderTest, DestroyedTakesBackOnlyWhatTheCompositionStillHolds) {
    initialize();
    model.withdrawExport(&transcoder->videoPreset());
    const Messages messages(bus);
    transcoder.reset();
    EXPECT_EQ(messages.of("bus Change composition").size(), 1U);
    EXPECT_TRUE(model.composition.exportedAudios().empty());
}

TEST_F(TranscoderTest, DestroyedAfterTheCompositionIsGoneAsksForNothing) {
    initialize();
    model.removeComposition();
    const Messages messages(bus);
    transcoder.reset();
    EXPECT_TRUE(messages.of("bus Change composition").empty());
}

TEST_F(TranscoderTest, DestroyedWhileItWaitsNeverStarts) {
    initialize();
    TestSupport::turnEventLoop();
    transcoder.reset();
    TestSupport::turnEventLoop();
    EXPECT_EQ(logged(), std::vector<std::string>());
}

TEST_F(TranscoderTest, DestroyedWithAnAttemptPendingNeverStarts) {
    initialize();
    model.buildStreams(videoStream, audioStream);
    transcoder.reset();
    TestSupport::turnEventLoop();
    EXPECT_EQ(logged(), std::vector<std::string>());
    EXPECT_EQ(calls->Get(), CallLog::Calls());
}

TEST_F(TranscoderTest, DestroyedWithTheAttemptsTimerRunningNeverStarts) {
    initialize();
    model.buildStreams(videoStream, audioStream);
    QCoreApplication::sendPostedEvents();
    ASSERT_EQ(logged(), std::vector<std::string>());
    transcoder.reset();
    TestSupport::turnEventLoop();
    EXPECT_EQ(logged(), std::vector<std::string>());
}

TEST_F(TranscoderTest, DestroyedWhileItRunsIsSilentAndReleasesTheEngine) {
    processors.Prepare([](FakeProcessor& made) {
        made.PlayOnStart({FakeProcessor::Started(), FakeProcessor::Progress(1, 1, 10, 5, 5),
                          FakeProcessor::Error(std::make_exception_ptr(1)), FakeProcessor::Finished()});
    });
    initialize();
    model.buildStreams(videoStream, audioStream);
    ASSERT_TRUE(TestSupport::waitUntil([this] { return countLogged(355) == 1; }));
    writeOutput();
    emissions.clear();
    transcoder.reset();
    TestSupport::turnEventLoop();
    EXPECT_TRUE(emissions.empty());
    EXPECT_TRUE(calls->Contains("~FakeProcessor"));
    EXPECT_TRUE(QFileInfo::exists(outputPath()));
}

TEST_F(TranscoderTest, DestroyedAfterTheEndReleasesTheEngine) {
    start();
    play({FakeProcessor::Finished()});
    EXPECT_FALSE(calls->Contains("~FakeProcessor"));
    transcoder.reset();
    EXPECT_TRUE(calls->Contains("~FakeProcessor"));
}

TEST_F(TranscoderTest, DestroyedAfterARefusalAsksTheCompositionForNothing) {
    QString error;
    ASSERT_FALSE(transcoder->initialize({}, error));
    const Messages messages(bus);
    transcoder.reset();
    EXPECT_TRUE(messages.of("bus Change composition").empty());
}

TEST_F(TranscoderTest, GoesWithItsParent) {
    auto parent = std::make_unique<QObject>();
    transcoder.reset();
    new Export::Transcoder(parent.get());
    EXPECT_TRUE(model.fastTrack.isSuppressed());
    parent.reset();
    EXPECT_FALSE(model.fastTrack.isSuppressed());
}

TEST_F(TranscoderTest, LeavesTheSuppressionAloneWhileItsRunStartsAndFails) {
    const Messages messages(bus);
    start();
    play({FakeProcessor::Started(), FakeProcessor::Error(std::make_exception_ptr(std::runtime_error("no room")))});
    EXPECT_EQ(emissions, (Signals{"started", "failed", "stopped"}));
    EXPECT_TRUE(messages.of("bus Change fast track").empty());
    EXPECT_TRUE(model.fastTrack.isSuppressed());
}

TEST_F(TranscoderTest, LeavesTheSuppressionAloneWhileItsRunIsStopped) {
    const Messages messages(bus);
    start();
    transcoder->stop();
    play({});
    EXPECT_EQ(emissions, Signals{"stopped"});
    EXPECT_TRUE(messages.of("bus Change fast track").empty());
    EXPECT_TRUE(model.fastTrack.isSuppressed());
}

TEST_F(TranscoderTest, TwoAtOnceSuppressTheFastTrackEachForItself) {
    auto second = makeTranscoder();
    transcoder.reset();
    EXPECT_TRUE(model.fastTrack.isSuppressed());
    second.reset();
    EXPECT_FALSE(model.fastTrack.isSuppressed());
}

TEST_F(TranscoderTest, TwoAtOnceRunEachWithItsOwnStreams) {
    auto second = makeTranscoder();
    initialize();
    const auto* firstVideo = model.videoStreams.stream();
    const auto* firstAudio = model.audioStreams.stream();
    QString error;
    ASSERT_TRUE(second->initialize(request(), error));
    ASSERT_NE(model.videoStreams.stream(), firstVideo);

    makeReady(); // the second's alone
    EXPECT_EQ(processors.GetMade().size(), 1U);
    EXPECT_FALSE(firstVideo->using_);

    model.videoStreams.setImpl(videoStream, firstVideo);
    model.audioStreams.setImpl(audioStream, firstAudio);
    model.videoStreams.setAvailable(true, firstVideo);
    model.audioStreams.setAvailable(true, firstAudio);
    TestSupport::turnEventLoop();
    EXPECT_EQ(processors.GetMade().size(), 2U);
    EXPECT_EQ(countLogged(355), 2U);

    second.reset();
    EXPECT_EQ(model.videoStreams.allStreams().size(), 1U);
    play({FakeProcessor::Started(), FakeProcessor::Finished()});
    EXPECT_EQ(emissions, (Signals{"started", "stopped"}));
}
