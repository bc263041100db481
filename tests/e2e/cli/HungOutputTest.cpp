// SPDX-License-Identifier: GPL-3.0-or-later
// What the program does when the output's folder does not answer.
#include "HungProgram.h"
#include <QDir>
#include <csignal>
#include <cstdlib>

using TestCli::Hang;
using TestCli::Program;
using TestCli::Result;

namespace {

const char* const UNFINISHED = ".editor-export-";

class HungOutput : public TestCli::HungProgram, public ::testing::WithParamInterface<Hang> {};
class HungOutputsEnd : public TestCli::HungProgram {};

TEST_P(HungOutput, KeepsNoStopFromComingToItsEndAndIsNamed) {
    const TestMedia::Folder scratch;
    Program program(command());
    prepare(program, GetParam(), UNFINISHED);
    program.setEnvironment("TMPDIR", scratch / "");
    expectStopOf(program, {"film.mp4", "does not come"});
    EXPECT_EQ(TestFiles::namesIn(scratch / ""), QStringList());
}

INSTANTIATE_TEST_SUITE_P(At, HungOutput,
                         testing::Values(Hang{"Making", "open", "make-output", "0"},
                                         Hang{"Writing", "pwrite", "kestra-mux", "0"},
                                         Hang{"Syncing", "fsync", "check-output", "0"},
                                         Hang{"Moving", "rename", "check-output", "0"}),
                         [](const auto& testCase) { return std::string(testCase.param.name); });

TEST_F(HungOutputsEnd, LeavesTheUnfinishedFileThatItNames) {
    Program program(longCommand());
    prepare(program, {"", "unlink", "", "0"}, UNFINISHED);
    program.start();
    ASSERT_TRUE(program.waitForError(QStringLiteral("progress")));
    program.signal(SIGTERM);
    const Result result = program.finish();
    EXPECT_EQ(result.code, 143) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("film.mp4\\\" does not answer"))) << result.errors.toStdString();
    EXPECT_EQ(TestFiles::read(output), "old");
    ASSERT_EQ(names().size(), 2);
    EXPECT_TRUE(result.errors.contains(names().first())) << result.errors.toStdString();
}

TEST_F(HungOutputsEnd, KeepsASecondSignalFromItsEndForTwoSecondsOnly) {
    Program program(longCommand());
    prepare(program, {"", "unlink", "", "0"}, UNFINISHED);
    program.start();
    ASSERT_TRUE(program.waitForError(QStringLiteral("progress")));
    program.signal(SIGTERM);
    program.signal(SIGINT); // its handler hangs in the removal
    const Result result = program.finish();
    EXPECT_TRUE(result.ended);
    EXPECT_NE(result.code, 0);
    EXPECT_EQ(TestFiles::read(output), "old");
}

class KilledQueue : public TestCli::HungProgram {
protected:
    /// Of one film in a folder of its own, killed when that stands at its place and nobody knows it yet.
    void killBehindTheMove(const std::string& film, const char* syncsBefore) const {
        Program program({"queue", queue});
        prepare(program, {"", "fsync", "check-output", syncsBefore}, "finished-films"); // that of its folder
        program.start();
        ASSERT_TRUE(waitUntilHung(program)) << program.finish().rawErrors;
        ASSERT_TRUE(QFileInfo::exists(QString::fromStdString(film)));
        program.signal(SIGKILL);
        EXPECT_EQ(program.finish().code, -1);
    }
    void write(const std::string& film, const char* preset) const {
        TestFiles::write(queue, QByteArray::fromStdString("{\"queue\":1,\"jobs\":[{\"inputs\":\"" +
                                                          (*folder / "share.mov") + "\",\"output\":\"" + film +
                                                          "\",\"out\":\"1\",\"preset\":\"" + preset + "\"}]}"));
    }

    const std::string films = elsewhere / "finished-films";
    const std::string queue = place / "jobs.json";
};

TEST_F(KilledQueue, KnowsTheFilmAgainThatItHadFinished) {
    ASSERT_TRUE(QDir().mkdir(QString::fromStdString(films)));
    const std::string film = films + "/film.mp4";
    write(film, "mp4-h264-480p");
    killBehindTheMove(film, "1"); // its own
    const QByteArray made = TestFiles::read(film);
    const Result again = TestCli::run({"queue", queue});
    EXPECT_EQ(again.code, 0) << again.rawErrors;
    EXPECT_EQ(again.rawOutput, "1 job: 0 done, 1 done before\n");
    EXPECT_EQ(TestFiles::read(film), made);
    const Result third = TestCli::run({"queue", queue});
    EXPECT_EQ(third.rawOutput, "1 job: 0 done, 1 done before\n") << "it is kept as every other one";
    EXPECT_EQ(TestFiles::namesIn(films), QStringList(QStringLiteral("film.mp4")));
}

TEST_F(KilledQueue, TakesNoOtherFilmForItsOwn) {
    ASSERT_TRUE(QDir().mkdir(QString::fromStdString(films)));
    const std::string film = films + "/film.mp4", copy = films + "/copy.mp4";
    write(film, "mp4-h264-480p");
    killBehindTheMove(film, "1"); // its own
    // Of the same size, content and time.
    ASSERT_EQ(std::system(("cp -p '" + film + "' '" + copy + "' && mv '" + copy + "' '" + film + "'").c_str()), 0);
    const Result again = TestCli::run({"queue", queue});
    EXPECT_EQ(again.code, 1);
    EXPECT_TRUE(again.errors.contains(QStringLiteral("it exists already"))) << again.rawErrors;
}

TEST_F(KilledQueue, KnowsThePicturesAgainThatItHadFinished) {
    ASSERT_TRUE(QDir().mkdir(QString::fromStdString(films)));
    const std::string shots = films + "/shots";
    write(shots, "png-sequence");
    killBehindTheMove(shots, "0"); // they have all been brought to the disk by another call
    const QStringList made = TestFiles::namesIn(shots);
    EXPECT_EQ(made.size(), 25);
    const Result again = TestCli::run({"queue", queue});
    EXPECT_EQ(again.rawOutput, "1 job: 0 done, 1 done before\n") << again.rawErrors;
    EXPECT_EQ(TestFiles::namesIn(shots), made);
}

} // namespace
