// SPDX-License-Identifier: GPL-3.0-or-later
// The program under a shim that makes calls on one file hang.
#pragma once

#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <QFileInfo>
#include <gtest/gtest.h>

namespace TestCli {

/// Where a call hangs: which, on which threads, after how many that went well.
struct Hang {
    const char* name;
    const char* call;
    const char* thread;
    const char* after;
};

/// An export of "share.mov" over "film.mp4", which holds "old".
class HungProgram : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.frames = 500;
        TestMedia::makeFlashBeep(*folder / "share.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    HungProgram() { TestFiles::write(output, "old"); }

    void SetUp() override {
#ifdef EDITOREXPORT_SANITIZED
        GTEST_SKIP() << "nothing can be preloaded before a sanitizer";
#endif
    }
    /// `file` is a part of the path of what hangs.
    void prepare(Program& program, const Hang& hang, const char* file) const {
        program.setEnvironment("LD_PRELOAD", HANG_SHIM);
        program.setEnvironment("HANG_FILE", file);
        program.setEnvironment("HANG_CALL", hang.call);
        program.setEnvironment("HANG_THREAD", hang.thread);
        program.setEnvironment("HANG_AFTER", hang.after);
        program.setEnvironment("HANG_MARK", mark);
    }
    std::vector<std::string> command() const {
        return {"render", *folder / "share.mov", "-p", "mp4-h264-480p", "-o", output, "--overwrite"};
    }
    /// One that is still at it when its first progress has been seen.
    std::vector<std::string> longCommand() const {
        return {"render",         *folder / "share.mov", "-p",  "mp4-h264-1080p", "-o", output, "--overwrite", "--set",
                "size=1920x1080", "--progress",          "json"};
    }
    bool isHung() const {
        return QFileInfo::exists(QString::fromStdString(mark));
    }
    /// False when the program ended and nothing had hung.
    bool waitUntilHung(Program& program) const {
        return program.waitUntil([this] { return isHung(); });
    }
    /// Stops the program once it hangs: it ends by itself, says what does not come back, and changes nothing.
    void expectStopOf(Program& program, const std::vector<const char*>& words) const {
        program.start();
        ASSERT_TRUE(waitUntilHung(program)) << program.finish().errors.toStdString();
        program.signal(SIGTERM);
        const Result result = program.finish();
        EXPECT_TRUE(result.ended);
        EXPECT_EQ(result.code, 143) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains(QLatin1String("stopped, nothing was written")))
            << result.errors.toStdString();
        for (const char* const word : words)
            EXPECT_TRUE(result.errors.contains(QLatin1String(word))) << word << " in " << result.errors.toStdString();
        expectUntouched();
    }
    QStringList names() const {
        return TestFiles::namesIn(place / "");
    }
    void expectUntouched() const {
        EXPECT_EQ(TestFiles::read(output), "old");
        EXPECT_EQ(names(), QStringList(QStringLiteral("film.mp4")));
    }

    static inline TestMedia::Folder* folder = nullptr;
    const TestMedia::Folder place, elsewhere;
    const std::string output = place / "film.mp4";
    const std::string mark = elsewhere / "hung";
};

} // namespace TestCli
