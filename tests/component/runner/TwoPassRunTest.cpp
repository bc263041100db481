// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/TwoPass.h"
#include "Kestra/Conf/IFormatCodec.h"
#include "component/runner/RunnerFixture.h"
#include <QDir>
#include <QTemporaryDir>
#include <stdexcept>

using Kestra::Conf::IFormatCodec;
using Kestra::Core::Property;
using Kestra::Fakes::FakeEncoder;
using Kestra::Fakes::PacketPlan;
using Kestra::Fakes::Script;

namespace {

constexpr std::int64_t SECOND = 705'600'000;

FakeProcessor::Event progress(int percent, int elapsedSeconds, int remainingSeconds, std::int64_t position = SECOND) {
    return FakeProcessor::Progress(percent, position, 10 * SECOND, elapsedSeconds, remainingSeconds);
}

std::exception_ptr failure(const std::string& text) {
    return std::make_exception_ptr(std::runtime_error(text));
}

boost::intrusive_ptr<Kestra::Proc::IEncoder> scriptedEncoder(const std::shared_ptr<Script>& script) {
    return boost::intrusive_ptr<Kestra::Proc::IEncoder>(new FakeEncoder(PacketPlan(), script));
}

/// A runner with two passes over fake processors, its temporary directory on the disk.
class TwoPassRun : public Runner {
protected:
    TwoPassRun() { makeTwo(); }

    void makeTwo() { make(videoFactory(), audioFactory(), muxerFactory()); }
    void make(const Export::EncoderFactory& video, const Export::EncoderFactory& audio,
              const Export::MuxerFactory& muxer) {
        runner = Export::createStreamProcessingHelper(1, video, audio, muxer, directory.path());
        listen(*runner);
    }

    /// The runner is in its second pass after this.
    void runFirstPass() {
        runner->start();
        play({FakeProcessor::Started(), FakeProcessor::Finished()});
    }
    const std::vector<Property>& settingsOf(std::size_t encoder) const {
        return dynamic_cast<const FakeEncoder&>(*encoders.at(encoder)).GetGivenSettings();
    }
    const Property& twoPassOf(std::size_t encoder) const {
        const Property& settings = settingsOf(encoder).at(0);
        return settings[IFormatCodec::TAG_TWO_PASS];
    }
    QString logOf(std::size_t encoder) const {
        return QString::fromStdString(twoPassOf(encoder)[IFormatCodec::TAG_TWO_PASS_LOG_FILE].GetString());
    }
    bool isFirst(std::size_t encoder) const { return twoPassOf(encoder)[IFormatCodec::TAG_TWO_PASS_FIRST].GetBool(); }
    QStringList content(const QString& folder) const {
        return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }

    const QTemporaryDir directory;
};

} // namespace

TEST_F(TwoPassRun, MakesItsDirectoryAndNothingElse) {
    EXPECT_EQ(content(directory.path()), QStringList(QStringLiteral("two_pass")));
    EXPECT_EQ(content(directory.filePath(QStringLiteral("two_pass"))), QStringList());
    EXPECT_EQ(calls(), CallLog::Calls());
}

TEST_F(TwoPassRun, PutsItsLogIntoThatDirectory) {
    runner->start();
    const QFileInfo log(logOf(0));
    EXPECT_EQ(log.path(), directory.filePath(QStringLiteral("two_pass")));
    EXPECT_EQ(log.suffix(), QStringLiteral("log"));
    EXPECT_FALSE(log.completeBaseName().isEmpty());
    EXPECT_EQ(content(log.path()), QStringList()) << "the log is for the encoder to make";
}

TEST_F(TwoPassRun, HasALogOfItsOwnInADirectoryThatRunsShare) {
    runner->start();
    makeTwo();
    runner->start();
    EXPECT_EQ(QFileInfo(logOf(0)).path(), QFileInfo(logOf(1)).path());
    EXPECT_NE(logOf(0), logOf(1));
    EXPECT_EQ(content(directory.path()), QStringList(QStringLiteral("two_pass")));
}

TEST_F(TwoPassRun, RunsTheVideoEncoderAloneWithoutAMuxerFirst) {
    runner->start();
    EXPECT_EQ(calls(),
              (CallLog::Calls{"video encoder", "CreateStreamProcessor", "SetEventsReceiver", "Initialize", "Start"}));
    const auto& made = processors.GetMade().at(0);
    EXPECT_EQ(made.streams, (std::vector<boost::intrusive_ptr<Kestra::Proc::IStream>>{encoders.at(0)}));
    EXPECT_EQ(made.muxer, nullptr);
}

TEST_F(TwoPassRun, RunsVideoThenAudioAndTheMuxerSecond) {
    runFirstPass();
    ASSERT_EQ(processors.GetMade().size(), 2U);
    const auto& made = processors.GetMade().at(1);
    EXPECT_EQ(made.streams, (std::vector<boost::intrusive_ptr<Kestra::Proc::IStream>>{encoders.at(1), encoders.at(2)}));
    EXPECT_EQ(made.muxer, lastMuxer);
    EXPECT_NE(made.muxer, nullptr);
}

TEST_F(TwoPassRun, RunsTheVideoEncoderAloneSecondWithoutAnAudioFactory) {
    make(videoFactory(), {}, muxerFactory());
    runFirstPass();
    const auto& made = processors.GetMade().at(1);
    EXPECT_EQ(made.streams, (std::vector<boost::intrusive_ptr<Kestra::Proc::IStream>>{encoders.at(1)}));
    EXPECT_EQ(made.muxer, lastMuxer);
}

TEST_F(TwoPassRun, MakesTheVideoEncoderTwiceAndTheOthersOnce) {
    runFirstPass();
    play({FakeProcessor::Started(), FakeProcessor::Finished()});
    EXPECT_EQ(processors.GetLog().Count("video encoder"), 2U);
    EXPECT_EQ(processors.GetLog().Count("audio encoder"), 1U);
    EXPECT_EQ(processors.GetLog().Count("muxer"), 1U);
    EXPECT_NE(encoders.at(0), encoders.at(1));
    EXPECT_EQ(emissions, (Signals{"started", "started", "stopped"}));
}

TEST_F(TwoPassRun, GivesEachVideoEncoderOnePropertyWithItsPassAndTheSameLog) {
    runFirstPass();
    ASSERT_EQ(settingsOf(0).size(), 1U);
    ASSERT_EQ(settingsOf(1).size(), 1U);
    EXPECT_TRUE(isFirst(0));
    EXPECT_FALSE(isFirst(1));
    EXPECT_EQ(logOf(0), logOf(1));
    EXPECT_TRUE(settingsOf(2).empty()) << "sound has no passes";
}

TEST_F(TwoPassRun, ConfiguresTheEncoderBeforeTheProcessorIsMade) {
    const std::shared_ptr<CallLog> log(&processors.GetLog(), [](CallLog*) {});
    make([log] { return scriptedEncoder(std::make_shared<Script>(log)); }, audioFactory(), muxerFactory());
    runner->start();
    EXPECT_EQ(calls(),
              (CallLog::Calls{"Initialize", "CreateStreamProcessor", "SetEventsReceiver", "Initialize", "Start"}));
}

TEST_F(TwoPassRun, ReleasesTheFirstProcessorWhenTheSecondExistsAndBeforeItIsLaunched) {
    runner->start();
    processors.GetLog().Clear();
    play({FakeProcessor::Finished()});
    EXPECT_EQ(calls(), (CallLog::Calls{"video encoder", "audio encoder", "muxer", "CreateStreamProcessor",
                                       "~FakeProcessor", "SetEventsReceiver", "Initialize", "Start"}));
}

TEST_F(TwoPassRun, TellsEachStart) {
    runFirstPass();
    play({FakeProcessor::Started()});
    EXPECT_EQ(emissions, (Signals{"started", "started"}));
}

TEST_F(TwoPassRun, GivesEachPassHalfOfTheHundred) {
    runner->start();
    play({progress(0, 0, -1), progress(50, 1, -1), progress(100, 1, -1), FakeProcessor::Finished()});
    play({progress(0, 0, -1), progress(50, 1, -1), progress(100, 1, -1)});
    EXPECT_EQ(emissions, (Signals{"progress 0 -1", "progress 25 -1", "progress 50 -1", "progress 50 -1",
                                  "progress 75 -1", "progress 100 -1"}));
}

TEST_F(TwoPassRun, ExtrapolatesTheFirstPassAndTakesTheEnginesEstimateInTheSecond) {
    runner->start();
    // Hardly any time has passed since the start, so hardly any is left, whatever the engine says.
    play({progress(50, 2, 4000, 5 * SECOND), FakeProcessor::Finished()});
    ASSERT_EQ(emissions.size(), 1U);
    const auto remaining = std::stoll(emissions[0].substr(std::string("progress 25 ").size()));
    EXPECT_GE(remaining, 0);
    EXPECT_LT(remaining, 1'000'000);
    emissions.clear();
    play({progress(50, 2, 4000, 5 * SECOND), progress(60, 3, -1)});
    EXPECT_EQ(emissions, (Signals{"progress 75 4000000", "progress 80 -1"}));
}

TEST_F(TwoPassRun, KnowsNoRemainingTimeInTheFirstTwoSecondsOfEitherPass) {
    runner->start();
    play({progress(10, -1, 5), progress(10, 0, 5), progress(10, 1, 5), FakeProcessor::Finished()});
    play({progress(10, -1, 5), progress(10, 0, 5), progress(10, 1, 5)});
    EXPECT_EQ(emissions, (Signals{"progress 5 -1", "progress 5 -1", "progress 5 -1", "progress 55 -1", "progress 55 -1",
                                  "progress 55 -1"}));
}

TEST_F(TwoPassRun, StoppedInItsFirstPassNeverMakesTheSecond) {
    runner->start();
    play({FakeProcessor::Started()});
    runner->stop();
    processor().WaitUntilDelivered();
    TestSupport::turnEventLoop();
    EXPECT_EQ(processors.GetMade().size(), 1U);
    EXPECT_EQ(processors.GetLog().Count("audio encoder"), 0U);
    EXPECT_EQ(processors.GetLog().Count("muxer"), 0U);
    EXPECT_EQ(emissions, (Signals{"started", "stopped"}));
}

TEST_F(TwoPassRun, StoppedWhileTheFirstEndIsUnderWayStopsOnceTheEngineHasEnded) {
    processors.Prepare([](FakeProcessor& made) { made.PlayOnStop({}); });
    runner->start();
    playUnheard({progress(100, 5, 0), FakeProcessor::Finished()});
    runner->stop();
    TestSupport::turnEventLoop();
    EXPECT_EQ(processors.GetMade().size(), 1U);
    EXPECT_EQ(emissions, Signals{"stopped"});
}

TEST_F(TwoPassRun, StoppedInItsSecondPassStopsOnce) {
    runFirstPass();
    play({FakeProcessor::Started(), progress(10, 1, 1)});
    runner->stop();
    processor().WaitUntilDelivered();
    play({progress(20, 1, 1)});
    EXPECT_EQ(emissions, (Signals{"started", "started", "progress 55 -1", "stopped"}));
    EXPECT_EQ(processors.GetMade().size(), 2U);
}

TEST_F(TwoPassRun, StartsAgainFromTheFirstPass) {
    runFirstPass();
    play({FakeProcessor::Finished()});
    runner->start();
    EXPECT_TRUE(isFirst(3));
    EXPECT_EQ(logOf(3), logOf(0)) << "a runner has one log";
    EXPECT_EQ(processors.GetMade().back().muxer, nullptr);
    play({progress(50, 1, 1)});
    EXPECT_EQ(emissions.back(), "progress 25 -1");
}

TEST_F(TwoPassRun, LetsAnErrorOfTheFirstPassThroughAndLeavesTheEndToOthers) {
    runner->start();
    play({FakeProcessor::Error(failure("broken"))});
    EXPECT_EQ(emissions, Signals{"processingFailed broken"});
    EXPECT_EQ(processors.GetMade().size(), 1U);
    play({FakeProcessor::Finished()});
    EXPECT_EQ(processors.GetMade().size(), 2U) << "nobody has stopped the run";
}

TEST_F(TwoPassRun, LetsAnErrorOfTheSecondPassThrough) {
    runFirstPass();
    play({FakeProcessor::Error(failure("broken")), FakeProcessor::Finished()});
    EXPECT_EQ(emissions, (Signals{"started", "processingFailed broken", "stopped"}));
}

TEST_F(TwoPassRun, TellsALaunchOfTheSecondPassThatFails) {
    runner->start();
    processors.Prepare([](FakeProcessor& made) { made.ThrowFromStart(failure("no threads")); });
    play({FakeProcessor::Finished()});
    EXPECT_EQ(emissions, Signals{"startFailed no threads"});
}

TEST_F(TwoPassRun, OutlivesNeitherItsDirectoryNorItsLog) {
    runner->start();
    QFile log(logOf(0));
    ASSERT_TRUE(log.open(QIODevice::WriteOnly));
    log.close();
    play({FakeProcessor::Finished()});
    play({FakeProcessor::Finished()});
    runner.reset();
    EXPECT_TRUE(log.exists()) << "the log goes with the temporary directory, whose owner is another";
}

TEST_F(TwoPassRun, LetsAnEmptyVideoFactoryThrow) {
    make({}, audioFactory(), muxerFactory());
    EXPECT_THROW(runner->start(), std::bad_function_call);
    EXPECT_EQ(calls(), CallLog::Calls());
}

TEST_F(TwoPassRun, LetsAnExceptionOfTheVideoFactoryThrough) {
    make([]() -> boost::intrusive_ptr<Kestra::Proc::IEncoder> { throw std::runtime_error("no encoder"); },
         audioFactory(), muxerFactory());
    EXPECT_THROW(runner->start(), std::runtime_error);
    EXPECT_EQ(emissions, Signals());
}

TEST_F(TwoPassRun, LetsAnExceptionOfTheConfigurationThrough) {
    make(
        [] {
            const auto script = std::make_shared<Script>();
            script->ThrowAt("Initialize", failure("no settings"));
            return scriptedEncoder(script);
        },
        audioFactory(), muxerFactory());
    EXPECT_THROW(runner->start(), std::runtime_error);
    EXPECT_EQ(calls(), CallLog::Calls()) << "no processor was made";
}

TEST_F(TwoPassRun, LetsAnExceptionBetweenThePassesLeaveTheForwardedCall) {
    make(
        videoFactory(), []() -> boost::intrusive_ptr<Kestra::Proc::IEncoder> { throw std::runtime_error("no sound"); },
        muxerFactory());
    runner->start();
    playUnheard({FakeProcessor::Finished()});
    EXPECT_THROW(TestSupport::turnEventLoop(), std::runtime_error);
    EXPECT_EQ(emissions, Signals());
    EXPECT_FALSE(processors.GetLog().Contains("~FakeProcessor")) << "the finished processor is still held";
    runner.reset();
    EXPECT_TRUE(processors.GetLog().Contains("~FakeProcessor"));
}

TEST_F(TwoPassRun, SaysNothingOfADirectoryThatCannotBeMade) {
    QFile obstacle(directory.filePath(QStringLiteral("file")));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    runner =
        Export::createStreamProcessingHelper(1, videoFactory(), audioFactory(), muxerFactory(), obstacle.fileName());
    ASSERT_NE(runner, nullptr);
    listen(*runner);
    runner->start();
    EXPECT_TRUE(logOf(0).startsWith(obstacle.fileName() + QStringLiteral("/two_pass/")));
    EXPECT_EQ(emissions, Signals());
}

TEST_F(TwoPassRun, KeepsItsOwnCopiesOfTheFactories) {
    auto video = videoFactory();
    auto audio = audioFactory();
    auto muxer = muxerFactory();
    make(video, audio, muxer);
    video = nullptr;
    audio = nullptr;
    muxer = nullptr;
    runFirstPass();
    EXPECT_EQ(calls().size(), 2 * 4U + 5U) << "video twice, audio and muxer once, and the first processor's end";
}

TEST_F(TwoPassRun, IsSilentOnceDestroyedBetweenThePasses) {
    runner->start();
    playUnheard({FakeProcessor::Finished()});
    runner.reset();
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions, Signals());
    EXPECT_EQ(processors.GetMade().size(), 1U);
}

TEST_F(TwoPassRun, MayBeDestroyedAtEverySignalOfBothPasses) {
    const Signals all{"started", "progress 5 -1", "started", "progress 55 -1", "stopped"};
    for (std::size_t last = 0; last < all.size(); ++last) {
        emissions.clear();
        encoders.clear();
        processors.Forget();
        makeTwo();
        onSignal = [&](const std::string&) {
            if (emissions.size() == last + 1)
                runner.reset();
        };
        const std::vector<FakeProcessor::Event> pass{FakeProcessor::Started(), progress(10, 1, 1),
                                                     FakeProcessor::Finished()};
        processors.Prepare([&](FakeProcessor& made) { made.PlayOnStart(pass); });
        runner->start();
        ASSERT_TRUE(TestSupport::waitUntil([&] { return !runner; })) << last;
        TestSupport::turnEventLoop();
        EXPECT_EQ(emissions, Signals(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(last) + 1));
    }
}

TEST_F(TwoPassRun, MayBeStoppedAtEverySignalOfBothPasses) {
    const Signals all{"started", "progress 5 -1", "started", "progress 55 -1"};
    for (std::size_t last = 0; last < all.size(); ++last) {
        emissions.clear();
        encoders.clear();
        makeTwo();
        onSignal = [&](const std::string& signal) {
            if (emissions.size() == last + 1 && signal != "stopped")
                runner->stop();
        };
        // The end of a pass is played by hand, so that a stop comes before it.
        processors.Prepare([&](FakeProcessor& made) {
            made.PlayOnStart({FakeProcessor::Started(), progress(10, 1, 1)});
        });
        runner->start();
        const std::size_t heardInFirst = std::min<std::size_t>(last + 1, 2);
        ASSERT_TRUE(TestSupport::waitUntil([&] { return emissions.size() >= heardInFirst; }));
        if (last >= 2)
            play({FakeProcessor::Finished()});
        ASSERT_TRUE(TestSupport::waitUntil([&] { return emissions.back() == "stopped"; })) << last;
        Signals expected(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(last) + 1);
        expected.emplace_back("stopped");
        EXPECT_EQ(emissions, expected);
    }
}

TEST(TwoPassSettings, ReturnTheSameEncoderAsAReferenceOfItsOwn) {
    const boost::intrusive_ptr<Kestra::Proc::IEncoder> encoder(new FakeEncoder);
    EXPECT_EQ(Export::applyTwoPassSettings(QStringLiteral("/some/pass.log"), encoder, true), encoder);
    const auto& given = dynamic_cast<const FakeEncoder&>(*encoder).GetGivenSettings();
    ASSERT_EQ(given.size(), 1U);
    const Property& twoPass = given[0][IFormatCodec::TAG_TWO_PASS];
    EXPECT_EQ(twoPass[IFormatCodec::TAG_TWO_PASS_LOG_FILE].GetString(), "/some/pass.log");
    EXPECT_TRUE(twoPass[IFormatCodec::TAG_TWO_PASS_FIRST].GetBool());
}

TEST(TwoPassSettings, CarryALogWithAnyName) {
    const boost::intrusive_ptr<Kestra::Proc::IEncoder> encoder(new FakeEncoder);
    const QString name = QString::fromUtf8("/Datenträger/日本 :%1.log");
    Export::applyTwoPassSettings(name, encoder, false);
    const auto& given = dynamic_cast<const FakeEncoder&>(*encoder).GetGivenSettings().at(0);
    EXPECT_EQ(given[IFormatCodec::TAG_TWO_PASS][IFormatCodec::TAG_TWO_PASS_LOG_FILE].GetString(), name.toStdString());
}
