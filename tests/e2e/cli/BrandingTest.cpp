// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <QRegularExpression>
#include <csignal>
#include <gtest/gtest.h>

using TestCli::Program;
using TestCli::Result;

namespace {

class CliBranding : public ::testing::Test {
protected:
    CliBranding() {
        TestMedia::FlashBeep media;
        media.frames = 25;
        TestMedia::makeFlashBeep(clip, media);
    }
    /// As on a machine without a display and without a session.
    static Result run(const std::vector<std::string>& arguments) {
        Program program(arguments);
        program.setEnvironment("QT_QPA_PLATFORM", "xcb");
        program.setEnvironment("DISPLAY", "");
        program.setEnvironment("XDG_RUNTIME_DIR", "");
        return program.run();
    }

    /// What the program makes for Qt; the scratch folder of an export is something else.
    static QStringList sessionFolders(const TestMedia::Folder& temporary) {
        return TestFiles::namesIn(temporary / "").filter(QRegularExpression(QStringLiteral("^(?!editor-export-)")));
    }

    const TestMedia::Folder place;
    const std::string clip = place / "clip.mov";
    const std::string output = place / "out.mp4";
};

TEST_F(CliBranding, IsNoneByDefault) {
    const Result result = run({"render", clip, "-p", "mp4-h264-480p", "-o", output, "--progress", "none"});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_EQ(TestMedia::probe(output).video->frames.size(), 25U);
}

TEST_F(CliBranding, AppendsTheOutroWithoutADisplay) {
    const Result result =
        run({"render", clip, "-p", "mp4-h264-480p", "-o", output, "--branding", "demo", "--progress", "none"});
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(result.errors.isEmpty()) << result.errors.toStdString();
    EXPECT_TRUE(result.output.contains(QStringLiteral(": 00:00:06.000, h264 320x180, 150 frames")))
        << result.output.toStdString();
    const TestMedia::ProbedMedia media = TestMedia::probe(output);
    EXPECT_EQ(media.video->frames.size(), 150U);
    EXPECT_EQ(media.decodeErrors, 0);
}

TEST_F(CliBranding, LeavesNothingInTheTemporaryFolder) {
    const TestMedia::Folder temporary;
    Program program({"render", clip, "-p", "mp4-h264-480p", "-o", output, "--branding", "demo", "--progress", "none"});
    program.setEnvironment("XDG_RUNTIME_DIR", "");
    program.setEnvironment("TMPDIR", temporary / "");
    const Result result = program.run();
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(result.errors.isEmpty()) << result.errors.toStdString();
    EXPECT_EQ(TestFiles::namesIn(temporary / ""), QStringList());
}

TEST_F(CliBranding, LengthensSoundAlone) {
    const std::string sound = place / "out.flac";
    const Result result = run({"render", clip, "-p", "flac", "-o", sound, "--branding", "demo", "--progress", "none"});
    EXPECT_EQ(result.code, 0) << result.errors.toStdString();
    EXPECT_EQ(TestMedia::probe(sound).audio->samples, 6 * 48000);
}

TEST_F(CliBranding, OfAnUnknownNameIsWrongUsage) {
    const Result result =
        run({"render", clip, "-p", "mp4-h264-480p", "-o", output, "--branding", "damo", "--progress", "none"});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.errors.trimmed(),
              QStringLiteral("editor-export: There is no outro \"damo\"; there are: demo; did you mean demo?"));
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("clip.mov")));
}

TEST_F(CliBranding, WithoutANameIsWrongUsage) {
    const Result result = run({"render", clip, "-p", "mp4-h264-480p", "-o", output, "--branding"});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.errorLines().size(), 1);
}

TEST_F(CliBranding, LeavesNothingInTheTemporaryFolderWhenASecondSignalEndsIt) {
    const TestMedia::Folder temporary;
    Program program({"render", clip, "-p", "mp4-h264-1080p", "-o", output, "--branding", "demo", "--set",
                     "size=1920x1080", "--progress", "json"});
    program.setEnvironment("XDG_RUNTIME_DIR", "");
    program.setEnvironment("TMPDIR", temporary / "");
    program.start();
    ASSERT_TRUE(program.waitForError(QStringLiteral("progress")));
    EXPECT_FALSE(sessionFolders(temporary).isEmpty());
    program.signal(SIGTERM);
    program.signal(SIGINT);
    const Result result = program.finish();
    EXPECT_TRUE(result.ended);
    EXPECT_FALSE(result.errors.contains(QStringLiteral("\"stopped\""))) << "on the spot";
    EXPECT_EQ(sessionFolders(temporary), QStringList());
}

} // namespace
