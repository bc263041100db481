// SPDX-License-Identifier: GPL-3.0-or-later
// What the program does when an input does not answer: a network share that is gone.
#include "HungProgram.h"
#include <csignal>

using TestCli::Hang;
using TestCli::Program;
using TestCli::Result;

namespace {

class HungInput : public TestCli::HungProgram, public ::testing::WithParamInterface<Hang> {};
class HungInputsEnd : public TestCli::HungProgram {};

TEST_P(HungInput, KeepsNoStopFromComingToItsEndAndIsNamed) {
    Program program(command());
    prepare(program, GetParam(), "share.mov");
    expectStopOf(program, {"share.mov"});
}

INSTANTIATE_TEST_SUITE_P(At, HungInput,
                         testing::Values(Hang{"Opening", "open", "open-inputs", "0"},
                                         Hang{"Probing", "read", "open-inputs", "0"},
                                         Hang{"ProbingOn", "read", "open-inputs", "1"},
                                         Hang{"SeekingWhileProbing", "lseek", "open-inputs", "1"},
                                         Hang{"OpeningPictures", "open", "kestra-read-vid", "0"},
                                         Hang{"OpeningSound", "open", "kestra-read-aud", "0"},
                                         Hang{"ReadingPictures", "read", "kestra-read-vid", "5"},
                                         Hang{"ReadingSound", "read", "kestra-read-aud", "5"},
                                         Hang{"SeekingPictures", "lseek", "kestra-read-vid", "1"},
                                         Hang{"SeekingSound", "lseek", "kestra-read-aud", "1"},
                                         Hang{"Closing", "close", "kestra-", "0"}),
                         [](const auto& testCase) { return std::string(testCase.param.name); });

TEST_F(HungInputsEnd, KeepsNoStopFromComingToItsEndAndIsNamed) {
    Program program(longCommand());
    prepare(program, {"", "close", "left-to-close", "0"}, "share.mov");
    program.start();
    ASSERT_TRUE(program.waitForError(QStringLiteral("progress")));
    program.signal(SIGTERM);
    const Result result = program.finish();
    ASSERT_TRUE(isHung());
    EXPECT_EQ(result.code, 143) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("share.mov\\\" does not come back")))
        << result.errors.toStdString();
    expectUntouched();
}

TEST_F(HungInputsEnd, IsNotWaitedForWhereNothingHangs) {
    Program program({"info", *folder / "share.mov"});
    prepare(program, {"", "read", "no-such-thread", "0"}, "share.mov");
    program.start();
    EXPECT_FALSE(waitUntilHung(program));
    EXPECT_EQ(program.finish().code, 0);
}

} // namespace
