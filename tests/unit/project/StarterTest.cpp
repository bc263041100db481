// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Starter.h"
#include <csignal>
#include <gtest/gtest.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using TestSupport::Starter;

namespace {

const char* const TELLS_ALL = "echo \"$1,$2,$MOOD,$LD_PRELOAD\"; echo trouble >&2; cat; exit 3";

TEST(Start, GivesArgumentsAndEnvironmentAndBringsBackWhatIsWritten) {
    Starter shell("sh");
    for (const char* const mood : {"fine", "bad"}) {
        const auto process =
            shell.start({"-c", TELLS_ALL, "sh", "a b", ""}, {"PATH=/usr/bin:/bin", "MOOD=" + std::string(mood)});
        process->waitForEnd();
        EXPECT_EQ(process->output, "a b,," + std::string(mood) + ",\n");
        EXPECT_EQ(process->errors, "trouble\n");
        ASSERT_TRUE(WIFEXITED(process->status));
        EXPECT_EQ(WEXITSTATUS(process->status), 3);
    }
}

TEST(Start, IsTheSameInTheUsualWay) {
    const auto process = TestSupport::startProgram({"sh", "-c", TELLS_ALL, "sh", "a b", ""}, {"MOOD=fine"});
    process->waitForEnd();
    EXPECT_EQ(process->output, "a b,,fine,\n");
    EXPECT_EQ(process->errors, "trouble\n");
    EXPECT_EQ(WEXITSTATUS(process->status), 3);
}

TEST(Start, TakesArgumentsOfAnyLengthAndAsMuchOutput) {
    Starter shell("sh");
    const std::string text(100'000, 'x');
    const auto process = shell.run({"-c", "echo $1$2$3$4", "sh", text, text, text, text});
    EXPECT_EQ(process->output.size(), 400'001U);
}

TEST(Start, TellsTheSignalThatEndsAProcess) {
    Starter shell("sh");
    const auto process = shell.run({"-c", "kill -9 $$"});
    EXPECT_TRUE(WIFSIGNALED(process->status));
}

TEST(Start, OfManyAtOnceMixesNothingUp) {
    Starter shell("sh");
    std::vector<std::string> outputs(8);
    std::vector<std::thread> threads;
    for (std::size_t at = 0; at < outputs.size(); ++at)
        threads.emplace_back([&, at] { outputs[at] = shell.run({"-c", "echo " + std::to_string(at)})->output; });
    for (std::thread& thread : threads)
        thread.join();
    for (std::size_t at = 0; at < outputs.size(); ++at)
        EXPECT_EQ(outputs[at], std::to_string(at) + "\n");
}

TEST(Start, LeavesNoProcessBehind) {
    pid_t number = -1;
    {
        Starter cat("cat");
        number = cat.start({"/dev/zero"})->number();
    }
    EXPECT_EQ(kill(number, 0), -1);
    EXPECT_EQ(waitpid(number, nullptr, WNOHANG), -1) << "nobody took its end";
}

TEST(Start, OfAProgramThatIsNotThereFails) {
    EXPECT_THROW(Starter("no-such-program").run({}), std::runtime_error);
    EXPECT_THROW(TestSupport::startProgram({"no-such-program"}), std::runtime_error);
}

TEST(Start, InAForkedProcessIsOfItsOwnChild) {
    Starter shell("sh");
    EXPECT_EQ(shell.run({"-c", "echo here"})->output, "here\n");
    const pid_t child = fork();
    if (child == 0)
        _exit(shell.run({"-c", "echo there"})->output == "there\n" ? 0 : 1);
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

} // namespace
