// SPDX-License-Identifier: GPL-3.0-or-later
// Exports in two passes, measured in the files that come out.
#include "ExportCore/ExportJob.h"
#include "Exported.h"
#include "ScratchPlace.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include "support/WaitUntil.h"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using ExportCore::ExportJob;
using ExportCore::ExportOutcome;
using ExportCore::ExportProgress;
using ExportCore::ExportRequest;
using TestExport::ScratchPlace;
using TestMedia::ProbedMedia;
using TestSupport::waitUntil;
using Status = ExportOutcome::Status;

namespace {

struct Target {
    const char* preset;
    const char* extension;
    double bitrate;
};

std::ostream& operator<<(std::ostream& stream, const Target& target) {
    return stream << target.preset;
}

std::string nameOf(const ::testing::TestParamInfo<Target>& info) {
    std::string name = info.param.preset;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

const Target TARGETS[] = {{"mp4-h264-1080p-2pass", "mp4", 300'000},
                          {"mp4-h264-1080p-6mbps-2pass", "mp4", 300'000},
                          {"mp4-hevc-1080p-2pass", "mp4", 250'000},
                          {"mp4-mpeg4-720p-2pass", "mp4", 400'000},
                          {"webm-vp9-1080p-2pass", "webm", 250'000}};

class TwoPassExport : public ::testing::TestWithParam<Target> {
protected:
    std::string output() const { return place / (std::string("film.") + GetParam().extension); }
    ExportRequest request(const std::string& input) const {
        return TestExport::requestOf(input, GetParam().preset, output());
    }
    /// Bits a second of the picture alone.
    double pictureRate(double seconds) const {
        const std::string raw = place / "picture.bin";
        TestMedia::runFfmpeg({"-y", "-i", output(), "-map", "0:v", "-c", "copy", "-f", "data", raw});
        return TestFiles::read(raw).size() * 8.0 / seconds;
    }

    const TestMedia::Folder place;
};

} // namespace

/// Fifteen seconds of detail and motion under a camera's noise, with a cut.
class TwoPassBitrate : public TwoPassExport {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::runFfmpeg({"-f", "lavfi", "-i",
                              "mandelbrot=size=96x64:rate=25:end_scale=0.01,trim=duration=10[a];"
                              "testsrc2=size=96x64:rate=25,trim=duration=5[b];"
                              "[a][b]concat=n=2,noise=alls=6:allf=t,format=yuv420p",
                              "-c:v", "ffv1", *folder / "natural.mkv"});
    }
    static void TearDownTestSuite() { delete folder; }

    static TestMedia::Folder* folder;
};

TestMedia::Folder* TwoPassBitrate::folder = nullptr;

TEST_P(TwoPassBitrate, IsThatOfThePresetWithinThreePercent) {
    ExportRequest wanted = request(*folder / "natural.mkv");
    wanted.settings = {"bitrate=" + std::to_string(static_cast<int>(GetParam().bitrate))};
    const ExportOutcome outcome = TestExport::run(wanted);
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(outcome.facts.frames, 375);
    EXPECT_EQ(outcome.facts.durationMs, 15'000);
    EXPECT_NEAR(pictureRate(15), GetParam().bitrate, 0.03 * GetParam().bitrate);
}

INSTANTIATE_TEST_SUITE_P(Presets, TwoPassBitrate, ::testing::ValuesIn(TARGETS), nameOf);

class TwoPassSync : public TwoPassExport {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::makeFlashBeep(*folder / "clip.mov", {});
    }
    static void TearDownTestSuite() { delete folder; }
    void expectInStep(const ProbedMedia& media, std::size_t flashes) const {
        const std::vector<double> offsets = media.offsets();
        EXPECT_EQ(offsets.size(), flashes);
        for (const double offset : offsets)
            EXPECT_LE(std::abs(offset), 0.001) << "sound minus picture";
        EXPECT_EQ(media.decodeErrors, 0);
    }

    static TestMedia::Folder* folder;
};

TestMedia::Folder* TwoPassSync::folder = nullptr;

TEST_P(TwoPassSync, KeepsEveryFrameAndSoundInStep) {
    const ExportOutcome outcome = TestExport::run(request(*folder / "clip.mov"));
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    const ProbedMedia media = TestMedia::probe(output());
    ASSERT_TRUE(media.video && media.audio);
    EXPECT_EQ(media.video->frames.size(), 100U);
    EXPECT_NEAR(media.duration, 4.0, 0.05);
    expectInStep(media, 4);
}

TEST_P(TwoPassSync, KeepsTheRangeThatWasAskedFor) {
    ExportRequest wanted = request(*folder / "clip.mov");
    wanted.in = KTime(500);
    wanted.out = KTime(3500);
    const ExportOutcome outcome = TestExport::run(wanted);
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    const ProbedMedia media = TestMedia::probe(output());
    ASSERT_TRUE(media.video && media.audio);
    EXPECT_EQ(media.video->frames.size(), 75U);
    EXPECT_NEAR(media.duration, 3.0, 0.05);
    expectInStep(media, 3);
}

TEST_P(TwoPassSync, KeepsTheWindowOnTheFinishedStreams) {
    ExportRequest wanted = request(*folder / "clip.mov");
    wanted.exportRange = {KTime(1000), KTime(3000)};
    const ExportOutcome outcome = TestExport::run(wanted);
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(TestMedia::probe(output()).video->frames.size(), 50U);
}

INSTANTIATE_TEST_SUITE_P(Presets, TwoPassSync, ::testing::ValuesIn(TARGETS), nameOf);

namespace {

/// A job that can be watched and ended half-way.
class TwoPassJob : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.width = 640;
        media.height = 360;
        media.frames = 250;
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    TwoPassJob() {
        TestFiles::write(output, "old");
        ExportRequest request = TestExport::requestOf(*folder / "clip.mov", "mp4-h264-1080p-2pass", output);
        request.overwrite = true;
        job = std::make_unique<ExportJob>(request);
        QObject::connect(job.get(), &ExportJob::progressChanged,
                         [this](const ExportProgress& now) { progress.push_back(now); });
        QObject::connect(job.get(), &ExportJob::finished, [this](const ExportOutcome& result) {
            outcome = result;
            ended = true;
        });
        job->start();
    }
    bool waitForPercent(int percent) {
        return waitUntil([=] { return ended || (!progress.empty() && progress.back().percent >= percent); }) && !ended;
    }
    bool waitForEnd() {
        return waitUntil([this] { return ended; });
    }
    void expectNothingLeft() {
        EXPECT_EQ(TestFiles::read(output), "old");
        EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("film.mp4")));
        EXPECT_EQ(scratch.names(), QStringList());
    }

    static TestMedia::Folder* folder;
    const TestMedia::Folder place;
    const ScratchPlace scratch;
    const std::string output = place / "film.mp4";
    std::unique_ptr<ExportJob> job;
    std::vector<ExportProgress> progress;
    ExportOutcome outcome;
    bool ended = false;
};

TestMedia::Folder* TwoPassJob::folder = nullptr;

} // namespace

TEST_F(TwoPassJob, CountsBothPassesUpToAHundred) {
    ASSERT_TRUE(waitForPercent(1));
    EXPECT_EQ(scratch.names().size(), 1) << "the run's statistics";
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_LT(progress.front().percent, 50);
    for (std::size_t at = 1; at < progress.size(); ++at)
        EXPECT_GE(progress[at].percent, progress[at - 1].percent);
    EXPECT_EQ(progress.back().percent, 100);
    EXPECT_EQ(outcome.facts.frames, 250);
    EXPECT_EQ(scratch.names(), QStringList());
}

TEST_F(TwoPassJob, StoppedInTheFirstPassLeavesNothing) {
    ASSERT_TRUE(waitForPercent(1));
    job->stop();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Stopped);
    expectNothingLeft();
}

TEST_F(TwoPassJob, StoppedInTheSecondPassLeavesNothing) {
    ASSERT_TRUE(waitForPercent(51));
    job->stop();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Stopped);
    expectNothingLeft();
}

TEST_F(TwoPassJob, DestroyedInTheSecondPassLeavesNothing) {
    ASSERT_TRUE(waitForPercent(51));
    job.reset();
    expectNothingLeft();
}

TEST_F(TwoPassJob, DestroyedInTheFirstPassLeavesNothing) {
    ASSERT_TRUE(waitForPercent(1));
    job.reset();
    expectNothingLeft();
}

TEST_F(TwoPassJob, FailingInTheSecondPassLeavesNothing) {
    ASSERT_TRUE(waitForPercent(1));
    const QString run = QString::fromLocal8Bit(qgetenv("TMPDIR")) + scratch.names().first();
    QDir(run).removeRecursively();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, Status::Failed);
    EXPECT_NE(outcome.error.GetDescription().find("two_pass"), std::string::npos) << outcome.error.GetDescription();
    expectNothingLeft();
}
