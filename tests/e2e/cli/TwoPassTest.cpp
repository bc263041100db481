// SPDX-License-Identifier: GPL-3.0-or-later
// Exports in two passes, as people run them.
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <algorithm>
#include <cmath>
#include <csignal>
#include <gtest/gtest.h>

using TestCli::Program;
using TestCli::Result;

namespace {

class TwoPassProgram : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.width = 640;
        media.height = 360;
        media.frames = 500;
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    TwoPassProgram()
        : program({"render", *folder / "clip.mov", "-p", "mp4-h264-1080p-2pass", "-o", output, "--progress", "json"}) {
        program.setEnvironment("TMPDIR", scratch / "");
    }
    static QList<int> percents(const Result& result) {
        QList<int> all;
        for (const QJsonObject& event : TestCli::jsonLines(result.errors))
            if (event.value(QStringLiteral("type")).toString() == QStringLiteral("progress"))
                all << event.value(QStringLiteral("percent")).toInt(-1);
        return all;
    }
    void expectNothingLeft() const {
        EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList());
        EXPECT_EQ(TestFiles::namesIn(scratch / ""), QStringList());
    }

    static TestMedia::Folder* folder;
    const TestMedia::Folder place, scratch;
    const std::string output = place / "film.mp4";
    Program program;
};

TestMedia::Folder* TwoPassProgram::folder = nullptr;

TEST_F(TwoPassProgram, TellsOneStartAndProgressThatNeverFalls) {
    const Result result = program.run();
    ASSERT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_EQ(result.errors.count(QStringLiteral("\"started\"")), 1);
    const QList<int> all = percents(result);
    ASSERT_FALSE(all.isEmpty());
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
    EXPECT_LT(all.first(), 50);
    EXPECT_EQ(all.last(), 100);
    EXPECT_EQ(TestFiles::namesIn(scratch / ""), QStringList());
    const QList<QJsonObject> results = TestCli::jsonLines(result.output);
    ASSERT_EQ(results.size(), 1);
    EXPECT_EQ(results[0].value(QStringLiteral("video")).toObject().value(QStringLiteral("frames")).toInt(), 500);
}

TEST_F(TwoPassProgram, WithAnOutroAndACutIsRightToTheFrameAndInStep) {
    Program cut({"render", *folder / "clip.mov", "-p", "mp4-h264-1080p-2pass", "-o", output, "--in", "2.5", "--out",
                 "5.5", "--branding", "demo", "--progress", "json"});
    const Result result = cut.run();
    ASSERT_EQ(result.code, 0) << result.errors.toStdString();
    const QList<int> all = percents(result);
    ASSERT_FALSE(all.isEmpty());
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
    EXPECT_EQ(all.last(), 100);
    const TestMedia::ProbedMedia media = TestMedia::probe(output);
    ASSERT_TRUE(media.video && media.audio);
    EXPECT_EQ(media.video->frames.size(), (3U + 5) * 25);
    EXPECT_NEAR(media.duration, 8, 0.03);
    EXPECT_EQ(media.decodeErrors, 0);
    const std::vector<double> offsets = media.offsets();
    EXPECT_EQ(offsets.size(), 3U);
    for (const double offset : offsets)
        EXPECT_LE(std::abs(offset), 0.001) << "sound minus picture";
}

TEST_F(TwoPassProgram, StopsAtAnyTimeOfBothPassesAndLeavesNothing) {
    for (const char* const at : {"\"started\"", "\"percent\":1", "\"percent\":6"}) {
        Program running(
            {"render", *folder / "clip.mov", "-p", "mp4-h264-1080p-2pass", "-o", output, "--progress", "json"});
        running.setEnvironment("TMPDIR", scratch / "");
        running.start();
        ASSERT_TRUE(running.waitForError(QString::fromUtf8(at)));
        running.signal(SIGTERM);
        const Result result = running.finish();
        EXPECT_EQ(result.code, 128 + SIGTERM);
        expectNothingLeft();
    }
}

TEST_F(TwoPassProgram, LeavesNothingWhenASecondSignalEndsIt) {
    program.start();
    ASSERT_TRUE(program.waitForError(QStringLiteral("\"percent\":1")));
    EXPECT_EQ(TestFiles::namesIn(scratch / "").size(), 1);
    program.signal(SIGTERM);
    program.signal(SIGINT);
    const Result result = program.finish();
    EXPECT_TRUE(result.ended);
    EXPECT_FALSE(result.errors.contains(QStringLiteral("\"stopped\""))) << "on the spot";
    expectNothingLeft();
}

} // namespace
