// SPDX-License-Identifier: GPL-3.0-or-later
// Exports whose first pass looks at half of the width and height.
#include "ExportCore/ExportJob.h"
#include "Exported.h"
#include "ScratchPlace.h"
#include "support/MediaProbe.h"
#include "support/WaitUntil.h"
#include <QDir>
#include <gtest/gtest.h>

using ExportCore::ExportJob;
using ExportCore::ExportOutcome;
using ExportCore::ExportProgress;
using ExportCore::ExportRequest;
using Status = ExportOutcome::Status;

namespace {

constexpr const char* PRESET = "mp4-h264-1080p-2pass";
constexpr double BITRATE = 400'000;

class HalfFirstPass : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::runFfmpeg({"-f", "lavfi", "-i",
                              "mandelbrot=size=256x144:rate=25:end_scale=0.01,trim=duration=12[a];"
                              "testsrc2=size=256x144:rate=25,trim=duration=6[b];"
                              "gradients=size=256x144:rate=25:speed=0.05,trim=duration=12[c];"
                              "[a][b][c]concat=n=3,noise=alls=6:allf=t,format=yuv420p",
                              "-c:v", "libx264", "-preset", "veryfast", "-crf", "14", *folder / "natural.mkv"});
    }
    static void TearDownTestSuite() { delete folder; }

    ExportRequest request(const std::vector<std::string>& settings) const {
        ExportRequest made = TestExport::requestOfPictures(*folder / "natural.mkv", PRESET, output);
        made.settings = settings;
        return made;
    }
    /// What x264's log of the first pass says of its frames, while the second pass is under way; the job goes on to its
    /// end.
    QByteArray sizeOfFirstPass(const ExportRequest& wanted) {
        ExportJob job(wanted);
        bool second = false, ended = false;
        QByteArray log;
        QObject::connect(&job, &ExportJob::progressChanged, [&](const ExportProgress& now) {
            if (now.percent > 50 && !second)
                log = firstLog();
            second = second || now.percent > 50;
        });
        QObject::connect(&job, &ExportJob::finished, [&](const ExportOutcome& result) {
            outcome = result;
            ended = true;
        });
        job.start();
        EXPECT_TRUE(TestSupport::waitUntil([&] { return ended; }));
        return log.split(' ').value(1);
    }
    /// Bits a second of the picture alone.
    double pictureRate(double seconds) const {
        const std::string raw = place / "picture.bin";
        TestMedia::runFfmpeg({"-y", "-i", output, "-map", "0:v", "-c", "copy", "-f", "data", raw});
        return TestFiles::read(raw).size() * 8.0 / seconds;
    }

    static TestMedia::Folder* folder;
    const TestMedia::Folder place;
    const TestExport::ScratchPlace scratch;
    const std::string output = place / "film.mp4";
    ExportOutcome outcome;

private:
    QByteArray firstLog() const {
        const QString top = QString::fromLocal8Bit(qgetenv("TMPDIR"));
        for (const QString& run : scratch.names()) {
            const QString logs = top + run + QStringLiteral("/two_pass/");
            for (const QString& name : QDir(logs).entryList({QStringLiteral("*.log")}, QDir::Files))
                return TestFiles::read((logs + name).toStdString());
        }
        return {};
    }
};

TestMedia::Folder* HalfFirstPass::folder = nullptr;

} // namespace

TEST_F(HalfFirstPass, MeetsTheBitrateOverThirtySeconds) {
    EXPECT_EQ(sizeOfFirstPass(request({"bitrate=400k", "first-pass=half"})), "128x72");
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(outcome.facts.frames, 750);
    EXPECT_TRUE(outcome.notes.isEmpty()) << outcome.notes.join(QLatin1Char('\n')).toStdString();
    EXPECT_NEAR(pictureRate(30), BITRATE, 0.03 * BITRATE);
}

TEST_F(HalfFirstPass, IsMadeWhereItIsOrderedAlone) {
    ExportRequest wanted = request({"bitrate=400k"});
    wanted.out = KTime(8000);
    EXPECT_EQ(sizeOfFirstPass(wanted), "256x144");
    EXPECT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    EXPECT_EQ(outcome.facts.frames, 200);
}

TEST_F(HalfFirstPass, IsWholeOfAShortPartAndTheOutcomeSaysWhy) {
    ExportRequest wanted = request({"bitrate=400k", "first-pass=half"});
    wanted.out = KTime(3000);
    EXPECT_EQ(sizeOfFirstPass(wanted), "256x144");
    EXPECT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    const QString why = QStringLiteral("The first pass looks at whole pictures in place of halves: "
                                       "the film is shorter than 4 seconds");
    EXPECT_EQ(outcome.notes, QStringList(why));
}

TEST_F(HalfFirstPass, IsWholeOfSmallPicturesAndTheOutcomeSaysWhy) {
    ExportRequest wanted = request({"bitrate=200k", "size=192x108", "first-pass=half"});
    wanted.out = KTime(5000);
    EXPECT_EQ(sizeOfFirstPass(wanted), "192x108");
    EXPECT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    const QString why = QStringLiteral("The first pass looks at whole pictures in place of halves: "
                                       "a side of the picture has less than 128 pixels");
    EXPECT_EQ(outcome.notes, QStringList(why));
}

TEST_F(HalfFirstPass, IsHalfOfWhatPicturesAreScaledTo) {
    ExportRequest wanted = request({"bitrate=400k", "size=320x320", "frame-rate=30", "first-pass=half"});
    wanted.out = KTime(8000);
    EXPECT_EQ(sizeOfFirstPass(wanted), "160x160");
    ASSERT_EQ(outcome.status, Status::Done) << outcome.error.GetDescription();
    const TestMedia::ProbedMedia media = TestMedia::probe(output);
    ASSERT_TRUE(media.video);
    EXPECT_EQ(media.video->width, 320);
    EXPECT_EQ(media.video->height, 320);
    EXPECT_EQ(media.video->frames.size(), 240U);
    EXPECT_EQ(media.decodeErrors, 0);
}

TEST_F(HalfFirstPass, TellsDamageOnce) {
    const std::string whole = place / "whole.mkv", damaged = place / "damaged.mkv";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "testsrc2=size=256x144:rate=25,noise=alls=8:allf=t", "-t", "8", "-c:v",
                          "libx264", "-preset", "veryfast", "-g", "25", "-pix_fmt", "yuv420p", whole});
    QByteArray bytes = TestFiles::read(whole);
    for (const int part : {3, 5, 7})
        bytes.replace(bytes.size() / 10 * part, 600, QByteArray(600, 0x55));
    TestFiles::write(damaged, bytes);
    QStringList warnings = TestExport::run(TestExport::requestOf(damaged, PRESET, output)).warnings;
    EXPECT_GE(warnings.size(), 1);
    EXPECT_EQ(warnings.removeDuplicates(), 0) << warnings.join(QLatin1Char('\n')).toStdString();
}
