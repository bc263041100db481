// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/transcoder/TranscoderFixture.h"
#include "support/TemporaryPlace.h"
#include <functional>
#include <stdexcept>

using TestSupport::TemporaryPlace;

namespace {

const std::string TRYING = "INFO 259 EXPORT: Trying to start";
const std::string STARTED = "INFO 355 EXPORT: Started";

} // namespace

TEST_F(TranscoderTest, StartsByItselfOnceBothStreamsAreAvailable) {
    initialize();
    model.buildStreams(videoStream, audioStream);
    EXPECT_EQ(logged(), std::vector<std::string>()) << "not inside the model's own call";
    TestSupport::turnEventLoop();
    EXPECT_EQ(logged(), (std::vector<std::string>{TRYING, STARTED}));
    EXPECT_EQ(calls->Get(), (CallLog::Calls{"CreateVideoEncoder", "CreateAudioEncoder", "CreateMuxer",
                                            "CreateStreamProcessor", "SetEventsReceiver", "Initialize", "Start"}));
}

TEST_F(TranscoderTest, LogsAgainstItsOwnSourceFile) {
    start();
    ASSERT_EQ(log.lines.size(), 2U);
    for (const auto& line : log.lines)
        EXPECT_EQ(line.file, "Transcoder.cpp");
}

TEST_F(TranscoderTest, DoesNothingWhileTheVideoStreamIsNotAvailable) {
    initialize();
    model.audioStreams.setImpl(audioStream);
    model.audioStreams.setAvailable(true);
    TestSupport::turnEventLoop();
    EXPECT_EQ(logged(), std::vector<std::string>());
    EXPECT_FALSE(model.audioStreams.stream()->using_);
    EXPECT_EQ(calls->Get(), CallLog::Calls());
}

TEST_F(TranscoderTest, DoesNothingWhileTheAudioStreamIsNotAvailable) {
    initialize();
    model.videoStreams.setImpl(videoStream);
    model.videoStreams.setAvailable(true);
    TestSupport::turnEventLoop();
    EXPECT_EQ(logged(), std::vector<std::string>());
    EXPECT_FALSE(model.videoStreams.stream()->using_);
}

TEST_F(TranscoderTest, TakesTheStreamsWhenItStarts) {
    start();
    EXPECT_TRUE(model.videoStreams.stream()->using_);
    EXPECT_TRUE(model.audioStreams.stream()->using_);
    EXPECT_EQ(model.videoStreams.stream()->impl, videoStream);
}

TEST_F(TranscoderTest, MayBeDestroyedByWhoeverHearsThatItTakesItsStreams) {
    for (const std::string medium : {"video", "audio"}) {
        transcoder = makeTranscoder();
        log.lines.clear();
        calls->Clear();
        initialize();
        bus.onMessage = [&](const std::string& message) {
            if (message.find("bus Changed " + medium + " stream: +source +using") == 0)
                transcoder.reset();
        };
        makeReady();
        bus.onMessage = nullptr;
        EXPECT_EQ(transcoder, nullptr) << medium;
        EXPECT_EQ(logged(), std::vector<std::string>{TRYING});
        EXPECT_EQ(calls->Get(), CallLog::Calls());
        EXPECT_TRUE(model.videoStreams.allStreams().empty());
        EXPECT_FALSE(model.fastTrack.isSuppressed());
    }
}

TEST_F(TranscoderTest, LeavesAStreamThatSomebodyElseTookAlone) {
    initialize();
    model.videoStreams.setAvailable(true);
    model.audioStreams.setAvailable(true);
    model.audioStreams.setUsing(true);
    TestSupport::turnEventLoop();
    EXPECT_EQ(logged(), std::vector<std::string>());
    EXPECT_FALSE(model.videoStreams.stream()->using_);
}

TEST_F(TranscoderTest, MakesOneAttemptOfTenChangesInOneTurn) {
    initialize();
    // Streams that are never marked as taken show every attempt.
    model.videoStreams.refuseChanges(true);
    model.audioStreams.refuseChanges(true);
    model.buildStreams(videoStream, audioStream);
    for (std::uint64_t version = 1; version <= 10; ++version)
        model.videoStreams.setVersion(version);
    TestSupport::turnEventLoop();
    EXPECT_EQ(countLogged(259), 1U);
    model.audioStreams.setVersion(1);
    TestSupport::turnEventLoop();
    EXPECT_EQ(countLogged(259), 2U) << "the next change makes the next attempt";
}

TEST_F(TranscoderTest, AttemptsSilentlyAfterTheStart) {
    start();
    calls->Clear();
    log.lines.clear();
    model.videoStreams.setVersion(7);
    TestSupport::turnEventLoop();
    EXPECT_EQ(logged(), std::vector<std::string>());
    EXPECT_EQ(calls->Get(), CallLog::Calls());
}

TEST_F(TranscoderTest, AttemptsSilentlyAfterTheEnd) {
    start();
    play({FakeProcessor::Started(), FakeProcessor::Finished()});
    log.lines.clear();
    model.audioStreams.setVersion(7);
    TestSupport::turnEventLoop();
    EXPECT_EQ(logged(), std::vector<std::string>());
    EXPECT_EQ(processors.GetMade().size(), 1U);
}

TEST_F(TranscoderTest, StartsWithSoundAlone) {
    start("sound");
    EXPECT_EQ(calls->Get(), (CallLog::Calls{"CreateAudioEncoder", "CreateMuxer", "CreateStreamProcessor",
                                            "SetEventsReceiver", "Initialize", "Start"}));
    EXPECT_EQ(processors.GetMade().at(0).streams.size(), 1U);
}

TEST_F(TranscoderTest, StartsWithPicturesAlone) {
    start("pictures");
    EXPECT_EQ(calls->Count("CreateVideoEncoder"), 1U);
    EXPECT_EQ(calls->Count("CreateAudioEncoder"), 0U);
}

TEST_F(TranscoderTest, StartsAMuxerAloneWhenNeitherStreamIsLeft) {
    initialize();
    model.videoStreams.remove();
    model.audioStreams.remove();
    TestSupport::turnEventLoop();
    EXPECT_EQ(logged(), (std::vector<std::string>{TRYING, STARTED}));
    EXPECT_EQ(calls->Get(),
              (CallLog::Calls{"CreateMuxer", "CreateStreamProcessor", "SetEventsReceiver", "Initialize", "Start"}));
    EXPECT_TRUE(processors.GetMade().at(0).streams.empty());
}

TEST_F(TranscoderTest, RunsOnePassInTheModeThatNeverTakesTwo) {
    initialize("two-pass");
    changeBitrateMode(Export::BitrateMode::Quality);
    makeReady();
    ASSERT_EQ(processors.GetMade().size(), 1U);
    EXPECT_NE(processors.GetMade().at(0).muxer, nullptr);
    EXPECT_EQ(processors.GetMade().at(0).streams.size(), 2U);
}

TEST_F(TranscoderTest, RunsOnePassOverSoundAloneWhateverThePresetSays) {
    model.videoStreams.adoptOffers(false);
    start("two-pass");
    EXPECT_NE(processors.GetMade().at(0).muxer, nullptr);
    EXPECT_EQ(processors.GetMade().at(0).streams.size(), 1U);
}

TEST_F(TranscoderTest, RunsTheVideoEncoderAloneBeforeTheWholeOfTwoPasses) {
    start("two-pass");
    EXPECT_EQ(calls->Get(), (CallLog::Calls{"CreateVideoEncoder", "CreateStreamProcessor", "SetEventsReceiver",
                                            "Initialize", "Start"}));
    EXPECT_EQ(processors.GetMade().at(0).muxer, nullptr);
    EXPECT_EQ(processors.GetMade().at(0).streams.size(), 1U);
    play({FakeProcessor::Finished()});
    ASSERT_EQ(processors.GetMade().size(), 2U);
    EXPECT_NE(processors.GetMade().at(1).muxer, nullptr);
    EXPECT_EQ(processors.GetMade().at(1).streams.size(), 2U);
    EXPECT_EQ(calls->Count("CreateVideoEncoder"), 2U);
    EXPECT_EQ(calls->Count("CreateAudioEncoder"), 1U);
    EXPECT_EQ(calls->Count("CreateMuxer"), 1U);
}

TEST_F(TranscoderTest, KeepsOneTemporaryDirectoryForTheRun) {
    const TemporaryPlace place(folder.path());
    start();
    EXPECT_EQ(TemporaryPlace::scratchDirectories(), 1);
    play({FakeProcessor::Finished()});
    EXPECT_EQ(TemporaryPlace::scratchDirectories(), 1);
    transcoder.reset();
    EXPECT_EQ(TemporaryPlace::scratchDirectories(), 0);
}

TEST_F(TranscoderTest, MakesItsTemporaryDirectoryOnceItHasTheStreams) {
    const TemporaryPlace place(folder.path());
    std::vector<int> directories;
    bus.onMessage = [&](const std::string& message) {
        if (message.find("stream: +source +using") != std::string::npos)
            directories.push_back(TemporaryPlace::scratchDirectories());
    };
    start();
    bus.onMessage = nullptr;
    ASSERT_FALSE(directories.empty());
    EXPECT_EQ(directories, std::vector<int>(directories.size(), 0));
    EXPECT_EQ(TemporaryPlace::scratchDirectories(), 1);
}

TEST_F(TranscoderTest, EncodesTheStreamsThatItsTakingLeavesThere) {
    const boost::intrusive_ptr<Kestra::Fakes::FakeStreamVideo> laterVideo(new Kestra::Fakes::FakeStreamVideo(250));
    const boost::intrusive_ptr<Kestra::Fakes::FakeStreamAudio> laterAudio(new Kestra::Fakes::FakeStreamAudio(480'000));
    bus.onMessage = [&](const std::string& message) {
        // The model answers the taking of a stream with another one, as after an edit.
        if (message.find("bus Changed video stream: +source +using") == 0 &&
            model.videoStreams.stream()->impl != laterVideo)
            model.videoStreams.setImpl(laterVideo);
        if (message.find("bus Changed audio stream: +source +using") == 0 &&
            model.audioStreams.stream()->impl != laterAudio)
            model.audioStreams.setImpl(laterAudio);
    };
    start();
    bus.onMessage = nullptr;
    ASSERT_EQ(codecs->GetMade().size(), 2U);
    EXPECT_EQ(codecs->GetMade()[0].stream, laterVideo);
    EXPECT_EQ(codecs->GetMade()[1].stream, laterAudio);
}

class ThrowingStart : public TranscoderTest {
protected:
    /// Starts; what left the attempt, as text.
    std::string startAndCatch() {
        initialize();
        makeReady();
        try {
            if (catcher.caught)
                std::rethrow_exception(catcher.caught);
        } catch (const std::exception& exception) {
            return exception.what();
        }
        return "nothing";
    }

    std::exception_ptr error = std::make_exception_ptr(std::runtime_error("refused"));
    TestSupport::TimerCatcher catcher;
};

TEST_F(ThrowingStart, LetsAVideoEncodersExceptionOut) {
    codecs->GetScript().ThrowAt("CreateVideoEncoder", error);
    EXPECT_EQ(startAndCatch(), "refused");
    EXPECT_EQ(emissions, Signals()) << "neither failed nor stopped";
    EXPECT_EQ(logged(), std::vector<std::string>{TRYING});
}

TEST_F(ThrowingStart, LetsAnAudioEncodersExceptionOut) {
    codecs->GetScript().ThrowAt("CreateAudioEncoder", error);
    EXPECT_EQ(startAndCatch(), "refused");
    EXPECT_EQ(emissions, Signals());
    EXPECT_EQ(logged(), std::vector<std::string>{TRYING});
}

TEST_F(ThrowingStart, LetsAMuxersExceptionOut) {
    muxers->GetScript().ThrowAt("CreateMuxer", error);
    EXPECT_EQ(startAndCatch(), "refused");
    EXPECT_EQ(emissions, Signals());
    EXPECT_EQ(logged(), std::vector<std::string>{TRYING});
}

TEST_F(ThrowingStart, LetsAProcessorsExceptionOutAndNeverTriesAgain) {
    processors.ThrowNext(error);
    EXPECT_EQ(startAndCatch(), "refused");
    EXPECT_EQ(emissions, Signals());
    EXPECT_TRUE(model.videoStreams.stream()->using_);
    EXPECT_TRUE(model.audioStreams.stream()->using_);
    model.videoStreams.setVersion(3);
    TestSupport::turnEventLoop();
    EXPECT_EQ(logged(), std::vector<std::string>{TRYING});
}

TEST_F(ThrowingStart, LetsAMissingTemporaryDirectoryOut) {
    writeOutput();
    const TemporaryPlace place(outputPath());
    const std::string caught = startAndCatch();
    EXPECT_NE(caught.find("cannot create a temporary directory"), std::string::npos) << caught;
    EXPECT_EQ(emissions, Signals());
    EXPECT_EQ(logged(), std::vector<std::string>{TRYING});
    EXPECT_TRUE(QFileInfo::exists(outputPath()));
    EXPECT_EQ(calls->Get(), CallLog::Calls());
}

TEST_F(ThrowingStart, LetsTheMissingPicturesOfTwoPassesOut) {
    initialize("two-pass");
    model.videoStreams.remove();
    model.audioStreams.remove();
    TestSupport::turnEventLoop();
    ASSERT_NE(catcher.caught, nullptr);
    EXPECT_THROW(std::rethrow_exception(catcher.caught), std::bad_function_call);
    EXPECT_EQ(emissions, Signals());
    EXPECT_EQ(logged(), std::vector<std::string>{TRYING});
}

TEST_F(ThrowingStart, MayBeStoppedAndDestroyedAfterwards) {
    processors.ThrowNext(error);
    EXPECT_EQ(startAndCatch(), "refused");
    transcoder->stop();
    transcoder.reset();
    EXPECT_EQ(emissions, Signals());
}
