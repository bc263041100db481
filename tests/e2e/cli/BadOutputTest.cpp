// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using TestCli::Program;
using TestCli::Result;

namespace {

class BadOutput : public ::testing::Test {
protected:
    BadOutput() {
        TestMedia::makeFlashBeep(clip, {});
        content = TestFiles::read(clip);
        chmod((folder / "").c_str(), 0777);
        chmod(clip.c_str(), 0666);
    }

    void expectRefused(const std::string& output, const std::vector<std::string>& words, bool overwrite = true,
                       bool dropRights = false) const {
        const QStringList before = TestFiles::namesIn(folder / "");
        std::vector<std::string> arguments{"render", clip, "-p", "mp4-h264-720p", "-o", output};
        if (overwrite)
            arguments.emplace_back("--overwrite");
        Program program(arguments);
        if (dropRights)
            program.dropRights();
        const Result result = program.run();
        EXPECT_EQ(result.code, 2) << output;
        EXPECT_EQ(result.errorLines().size(), 1) << result.errors.toStdString();
        for (const std::string& word : words)
            EXPECT_TRUE(result.errors.contains(QString::fromStdString(word)))
                << word << " in " << result.errors.toStdString();
        EXPECT_EQ(TestFiles::namesIn(folder / ""), before);
        EXPECT_EQ(TestFiles::read(clip), content) << "the input was touched";
    }

    const TestMedia::Folder folder;
    const std::string clip = folder / "clip.mov";
    const std::string output = folder / "film.mp4";
    QByteArray content;
};

TEST_F(BadOutput, TheInputItself) {
    expectRefused(clip, {"clip.mov", "it is one of the inputs"});
}

TEST_F(BadOutput, TheInputThroughALink) {
    ASSERT_EQ(symlink(clip.c_str(), (folder / "soft.mp4").c_str()), 0);
    ASSERT_EQ(link(clip.c_str(), (folder / "hard.mp4").c_str()), 0);
    ASSERT_EQ(symlink((folder / "").c_str(), (folder / "mirror").c_str()), 0);
    expectRefused(folder / "soft.mp4", {"soft.mp4", "it is one of the inputs"});
    expectRefused(folder / "hard.mp4", {"hard.mp4", "it is one of the inputs"});
    expectRefused(folder / "mirror/clip.mov", {"it is one of the inputs"});
    expectRefused((folder / "") + "./../" + (folder / "").substr(5) + "clip.mov", {"it is one of the inputs"});
}

TEST_F(BadOutput, AFileThatExists) {
    TestFiles::write(output, "old");
    expectRefused(output, {"film.mp4", "exists already"}, false);
    EXPECT_EQ(TestFiles::read(output), "old");
}

TEST_F(BadOutput, AFolderAPipeADevice) {
    ASSERT_EQ(mkfifo((folder / "pipe.mp4").c_str(), 0600), 0);
    expectRefused(folder / "", {"it is a folder"});
    expectRefused(folder / "pipe.mp4", {"it is a pipe"});
    expectRefused("/dev/null", {"it is a device"});
    expectRefused("/dev/full", {"it is a device"});
}

TEST_F(BadOutput, AFolderThatIsMissing) {
    expectRefused(folder / "none/film.mp4", {folder / "none", "No such file"});
}

TEST_F(BadOutput, AFolderThatMayNotBeWritten) {
    ASSERT_EQ(mkdir((folder / "locked").c_str(), 0555), 0);
    expectRefused(folder / "locked/film.mp4", {"locked", "Permission denied"}, true, true);
    EXPECT_TRUE(TestFiles::namesIn(folder / "locked").isEmpty());
}

TEST_F(BadOutput, AFileThatMayNotBeWritten) {
    TestFiles::write(output, "old");
    ASSERT_EQ(chmod(output.c_str(), 0444), 0);
    expectRefused(output, {"film.mp4", "Permission denied"}, true, true);
    EXPECT_EQ(TestFiles::read(output), "old");
}

TEST_F(BadOutput, AnEmptyName) {
    expectRefused("", {"output"});
}

TEST_F(BadOutput, AFileThatAppearsDuringTheRunStays) {
    const std::string slow = folder / "slow.mov";
    TestMedia::FlashBeep media;
    media.width = 640;
    media.height = 360;
    media.frames = 250;
    TestMedia::makeFlashBeep(slow, media);
    Program program({"render", slow, "-p", "mp4-h264-720p", "-o", output, "--progress", "json"});
    program.start();
    ASSERT_TRUE(program.waitForError(QStringLiteral("started")));
    TestFiles::write(output, "somebody else's");
    const Result result = program.finish();
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("film.mp4"))) << result.errors.toStdString();
    EXPECT_EQ(TestFiles::read(output), "somebody else's");
    EXPECT_EQ(TestFiles::namesIn(folder / "").size(), 3);
}

} // namespace
