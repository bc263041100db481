// SPDX-License-Identifier: GPL-3.0-or-later
// What the program does when the output's folder does not answer.
#include "HungProgram.h"
#include <csignal>

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

} // namespace
