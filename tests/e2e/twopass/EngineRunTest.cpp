// SPDX-License-Identifier: GPL-3.0-or-later
// The runner's two passes over the engine's own encoders.
#include "Export/CreateStreamProcessingHelper.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Core/DataOutputFF.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "Kestra/Proc/ProcessingError.h"
#include "fakes/streams/DecodedFile.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticAudio.h"
#include "fakes/streams/SyntheticVideo.h"
#include "support/FileHelpers.h"
#include "support/WaitUntil.h"
#include <algorithm>
#include <atomic>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>

using Export::IStreamProcessingHelper;
using Kestra::Conf::IFormatCodec;
using Kestra::Proc::IEncoder;
using Kestra::Proc::TranscodingError;
using Signals = std::vector<std::string>;

namespace {

constexpr int FRAMES = 50;

Fakes::VideoShape movingNoise() {
    Fakes::VideoShape shape;
    shape.width = 80;
    shape.height = 64;
    shape.frames = FRAMES;
    shape.paint = [](AVFrame& frame, int index) {
        std::uint32_t state = static_cast<std::uint32_t>(index) * 2654435761U + 1;
        for (int plane = 0; plane < 3; ++plane)
            for (int at = 0; at < frame.linesize[plane] * (plane ? 32 : 64); ++at) {
                state = state * 1664525U + 1013904223U;
                frame.data[plane][at] = static_cast<std::uint8_t>(60 + (at + index) % 64 + (state >> 29));
            }
    };
    return shape;
}

/// A run of two passes, what it has emitted, and its files.
class EngineRun : public ::testing::TestWithParam<const char*> {
protected:
    EngineRun() {
        Fakes::AudioShape sound;
        sound.samples = 96'000;
        sound.wave = [this](int, std::int64_t index) {
            soundWasRead = true;
            return 0.3 * std::sin(static_cast<double>(index) * 0.05);
        };
        audio = new Fakes::SyntheticAudio(sound);
        video = Fakes::MakeVideo(movingNoise());
    }

    Export::EncoderFactory videoFactory() {
        return [this] {
            ++videoEncoders;
            if (beforeVideoEncoder)
                beforeVideoEncoder(videoEncoders);
            auto description = Fakes::Description(GetParam());
            description.SetChild(IFormatCodec::TAG_BITRATE_MODE, std::string("vbr"));
            description.SetChild(IFormatCodec::TAG_BITRATE, std::int64_t{100'000});
            makeQuick(description);
            return Fakes::VideoEncoder(video, description);
        };
    }
    static void makeQuick(Kestra::Core::Property& description) {
        if (GetParam() == std::string("vp9"))
            Fakes::Options(description).SetChild("cpu-used", std::int64_t{5});
        if (GetParam() == std::string("hevc"))
            Fakes::Options(description).SetChild("preset", std::string("ultrafast"));
    }
    Export::EncoderFactory audioFactory() {
        return [this] { return Fakes::AudioEncoder(audio, Fakes::Description("aac")); };
    }
    Export::MuxerFactory muxerFactory() {
        return [this] {
            Kestra::Core::Property tree;
            tree.SetChild(Kestra::Conf::IFormatFile::TAG_CONTAINER_ID, std::string("mkv"));
            const auto format = Kestra::Conf::IFormatFile::Create();
            format->SetProperty(tree);
            return Kestra::Core::CoreManager::Instance().GetMuxerFactory().CreateMuxer(
                format, Kestra::Core::DataOutputFF::Create(Kestra::ioPath(output)));
        };
    }

    void start(const std::string& temporaryDirectory) {
        runner = Export::createStreamProcessingHelper(1, videoFactory(), audioFactory(), muxerFactory(),
                                                      QString::fromStdString(temporaryDirectory));
        listen(*runner);
        runner->start();
    }
    void start() { start(scratch.File("run")); }
    void listen(IStreamProcessingHelper& helper) {
        using Helper = IStreamProcessingHelper;
        QObject::connect(&helper, &Helper::started, &helper, [this] { note("started"); });
        QObject::connect(&helper, &Helper::stopped, &helper, [this] { note("stopped"); });
        QObject::connect(&helper, &Helper::progressChanged, &helper, [this](int percent, KTime) {
            percents.push_back(percent);
            note("progress");
        });
        QObject::connect(&helper, &Helper::processingFailed, &helper, [this](const std::exception_ptr& error) {
            failure = Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(error);
            note("failed");
        });
        QObject::connect(&helper, &Helper::startFailed, &helper, [this] { note("startFailed"); });
    }
    void note(const std::string& signal) {
        if (signal != "progress")
            emissions.push_back(signal);
        if (onSignal)
            onSignal(signal);
    }
    bool waitForEnd() {
        return TestSupport::waitUntil(
            [this] { return !emissions.empty() && (emissions.back() == "stopped" || emissions.back() == "failed"); });
    }

    /// The files of the statistics.
    QStringList statistics() const { return TestFiles::namesIn(scratch.File("run/two_pass")); }
    std::string logPath() const {
        for (const QString& name : statistics())
            if (name.endsWith(QStringLiteral(".log")))
                return scratch.File("run/two_pass/") + name.toStdString();
        return {};
    }

    const Fakes::ScratchFolder scratch;
    const std::string output = scratch.File("film.mkv");
    boost::intrusive_ptr<Kestra::Proc::IStreamVideo> video;
    boost::intrusive_ptr<Kestra::Proc::IStreamAudio> audio;
    std::atomic<bool> soundWasRead{false};
    int videoEncoders = 0;
    std::function<void(int)> beforeVideoEncoder;
    std::function<void(const std::string&)> onSignal;
    Signals emissions;
    std::vector<int> percents;
    Kestra::Proc::ProcessingError failure;
    std::unique_ptr<IStreamProcessingHelper> runner;
};

} // namespace

TEST_P(EngineRun, MakesOneFileOfBothStreamsFromTheirStart) {
    start();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(emissions, (Signals{"started", "started", "stopped"})) << failure.GetDescription();
    const Fakes::DecodedFile file = Fakes::Decode(output);
    EXPECT_EQ(file.tracks.size(), 2U);
    EXPECT_EQ(file.Video().pictures.size(), static_cast<std::size_t>(FRAMES));
    EXPECT_EQ(file.Video().pictures.front()->pts, 0);
    EXPECT_NEAR(file.seconds, 2.0, 0.05);
}

TEST_P(EngineRun, GoesFromNothingToAHundredAndNeverBack) {
    start();
    ASSERT_TRUE(waitForEnd());
    ASSERT_FALSE(percents.empty());
    EXPECT_TRUE(std::is_sorted(percents.begin(), percents.end()));
    EXPECT_GE(percents.front(), 0);
    EXPECT_LT(percents.front(), 50);
    EXPECT_GT(std::count(percents.begin(), percents.end(), 50), 0) << "the first pass ends at a half";
    EXPECT_EQ(percents.back(), 100);
}

TEST_P(EngineRun, TouchesNeitherSoundNorOutputInItsFirstPass) {
    bool untouched = false;
    beforeVideoEncoder = [&](int number) {
        if (number == 2)
            untouched = !soundWasRead && !QFile::exists(QString::fromStdString(output));
    };
    start();
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(untouched);
    EXPECT_TRUE(soundWasRead);
}

TEST_P(EngineRun, LeavesItsStatisticsInItsDirectoryAndNothingElse) {
    start();
    ASSERT_TRUE(waitForEnd());
    runner.reset();
    EXPECT_EQ(TestFiles::namesIn(scratch.File("run")), QStringList(QStringLiteral("two_pass")));
    EXPECT_EQ(TestFiles::namesIn(scratch.File("")), (QStringList{QStringLiteral("film.mkv"), QStringLiteral("run")}));
    const QString log = QString::fromStdString(logPath()).section(QLatin1Char('/'), -1);
    for (const QString& name : statistics())
        EXPECT_TRUE(name.startsWith(log)) << name.toStdString();
}

TEST_P(EngineRun, FailsWithTheNameOfAStatisticsFileThatGoesBetweenThePasses) {
    beforeVideoEncoder = [&](int number) {
        if (number == 2)
            QFile::remove(QString::fromStdString(logPath()));
    };
    start();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(emissions, (Signals{"started", "failed"}));
    EXPECT_EQ(failure.GetCode(), TranscodingError::SourceUnreadable);
    EXPECT_NE(failure.GetDescription().find("/two_pass/"), std::string::npos) << failure.GetDescription();
}

TEST_P(EngineRun, FailsWithTheNameOfAStatisticsFileThatIsDamagedBetweenThePasses) {
    std::string damaged;
    beforeVideoEncoder = [&](int number) {
        if (number != 2)
            return;
        damaged = logPath();
        const QByteArray whole = TestFiles::read(damaged);
        TestFiles::write(damaged, whole.left(whole.size() / 2));
    };
    start();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(emissions, (Signals{"started", "failed"}));
    EXPECT_EQ(failure.GetCode(), TranscodingError::SourceDamaged);
    EXPECT_NE(failure.GetDescription().find(damaged), std::string::npos) << failure.GetDescription();
}

TEST_P(EngineRun, FailsWithTheNameOfADirectoryThatCannotBeMade) {
    TestFiles::write(scratch.File("obstacle"), "no folder");
    start(scratch.File("obstacle"));
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(emissions, Signals{"failed"});
    EXPECT_EQ(failure.GetCode(), TranscodingError::OutputNotWritable);
    EXPECT_NE(failure.GetDescription().find(scratch.File("obstacle/two_pass/")), std::string::npos)
        << failure.GetDescription();
}

TEST_P(EngineRun, StopsAtEverySignalOfBothPasses) {
    for (const Signals& before : {Signals{"started"}, Signals{"started", "started"}}) {
        for (const bool atProgress : {false, true}) {
            emissions.clear();
            bool asked = false;
            onSignal = [&](const std::string& signal) {
                if (!asked && emissions == before && (signal == "progress") == atProgress) {
                    asked = true;
                    runner->stop();
                }
            };
            start();
            ASSERT_TRUE(waitForEnd());
            EXPECT_TRUE(asked);
            Signals expected = before;
            expected.emplace_back("stopped");
            EXPECT_EQ(emissions, expected);
            runner.reset();
        }
    }
}

TEST_P(EngineRun, MayBeDestroyedAtEverySignalOfBothPasses) {
    for (const Signals& before : {Signals{"started"}, Signals{"started", "started"}}) {
        for (const bool atProgress : {false, true}) {
            emissions.clear();
            onSignal = [&](const std::string& signal) {
                if (emissions == before && (signal == "progress") == atProgress)
                    runner.reset();
            };
            start();
            ASSERT_TRUE(TestSupport::waitUntil([&] { return !runner; }));
            TestSupport::turnEventLoop();
            EXPECT_EQ(emissions, before);
        }
    }
}

TEST_P(EngineRun, MayBeStoppedOrDestroyedAtAnyTurnOfTheEventLoop) {
    for (int turns = 0; turns < 12; ++turns) {
        emissions.clear();
        start();
        TestSupport::turnEventLoop(turns);
        if (turns % 2 == 0) {
            runner->stop();
            ASSERT_TRUE(waitForEnd()) << turns;
        }
        runner.reset();
    }
}

TEST_P(EngineRun, RunsAgainFromItsFirstPass) {
    start();
    ASSERT_TRUE(waitForEnd());
    const QByteArray first = TestFiles::read(output);
    emissions.clear();
    runner->start();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(emissions, (Signals{"started", "started", "stopped"})) << failure.GetDescription();
    EXPECT_EQ(Fakes::Decode(output).Video().pictures.size(), static_cast<std::size_t>(FRAMES));
}

INSTANTIATE_TEST_SUITE_P(Codecs, EngineRun, ::testing::Values("h264", "hevc", "vp9", "mpeg4"),
                         [](const auto& instance) { return std::string(instance.param); });
