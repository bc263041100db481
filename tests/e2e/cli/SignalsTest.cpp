// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <csignal>
#include <gtest/gtest.h>

using TestCli::Program;
using TestCli::Result;

namespace {

class Signals : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.width = 640;
        media.height = 360;
        media.frames = 1500;
        TestMedia::makeFlashBeep(*folder / "long.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    Signals() { TestFiles::write(output, "old"); }

    std::vector<std::string> command() const {
        return {"render", *folder / "long.mov", "-p",         "mp4-h264-720p", "-o",
                output,   "--overwrite",        "--progress", "json"};
    }
    void expectUntouched() const {
        EXPECT_EQ(TestFiles::read(output), "old");
        EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("film.mp4")));
    }

    static TestMedia::Folder* folder;
    const TestMedia::Folder place;
    const std::string output = place / "film.mp4";
};

TestMedia::Folder* Signals::folder = nullptr;

TEST_F(Signals, TermAndInterruptStopCleanly) {
    for (const int number : {SIGTERM, SIGINT}) {
        Program program(command());
        program.start();
        ASSERT_TRUE(program.waitForError(QStringLiteral("progress")));
        EXPECT_EQ(TestFiles::namesIn(place / "").size(), 2) << "the unfinished file stands beside the old one";
        program.signal(number);
        const Result result = program.finish();
        EXPECT_EQ(result.code, 128 + number);
        EXPECT_TRUE(result.errors.contains(QStringLiteral("\"stopped\""))) << result.errors.toStdString();
        EXPECT_TRUE(result.output.isEmpty());
        expectUntouched();
    }
}

TEST_F(Signals, AStopBeforeTheStartIsAStop) {
    // Whatever the program is at when the signal comes: every moment up to the first frame is tried.
    for (int delay = 0; delay < 200; delay += 20) {
        Program program(command());
        // In the foreground: elsewhere it signals its group too, and a second signal is no stop but an end at once.
        program.setWrapper({QStringLiteral("timeout"), QStringLiteral("--foreground"), QStringLiteral("-s"),
                            QStringLiteral("TERM"), QStringLiteral("--preserve-status"),
                            QString::number(0.05 + delay / 1000.0)});
        const Result result = program.run();
        // Before the program can listen, the signal ends it as it ends every process.
        EXPECT_EQ(result.code, 143) << delay << result.errors.toStdString();
        expectUntouched();
    }
}

TEST_F(Signals, ASecondSignalEndsAtOnceAndLeavesNothing) {
    Program program(command());
    // Who ends at once joins no thread.
    program.setEnvironment("TSAN_OPTIONS", qgetenv("TSAN_OPTIONS").toStdString() + ":report_thread_leaks=0");
    program.start();
    ASSERT_TRUE(program.waitForError(QStringLiteral("progress")));
    program.signal(SIGTERM);
    program.signal(SIGINT);
    const Result result = program.finish();
    EXPECT_TRUE(result.code == 130 || result.code == 143) << result.code;
    expectUntouched();
}

TEST_F(Signals, AfterAKillTheOldFileStandsAndTheNextRunCleansUp) {
    Program killed(command());
    killed.start();
    ASSERT_TRUE(killed.waitForError(QStringLiteral("progress")));
    killed.signal(SIGKILL);
    EXPECT_EQ(killed.finish().code, -1);
    EXPECT_EQ(TestFiles::read(output), "old");
    ASSERT_EQ(TestFiles::namesIn(place / "").size(), 2);
    const Result next = TestCli::run({"render", *folder / "long.mov", "-p", "wav", "-o", place / "other.wav"});
    EXPECT_EQ(next.code, 0) << next.errors.toStdString();
    EXPECT_EQ(TestFiles::namesIn(place / ""), (QStringList{QStringLiteral("film.mp4"), QStringLiteral("other.wav")}));
}

} // namespace
