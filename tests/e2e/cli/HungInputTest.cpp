// What the program does when an input does not answer: a network share that is gone.
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/WaitUntil.h"
#include <QFileInfo>
#include <csignal>
#include <gtest/gtest.h>

using TestCli::Program;
using TestCli::Result;

namespace {

/// Where a call hangs: which, on which threads, after how many that went well.
struct Hang {
    const char* name;
    const char* call;
    const char* thread;
    const char* after;
};

class HungInput : public ::testing::TestWithParam<Hang> {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.frames = 500;
        TestMedia::makeFlashBeep(*folder / "share.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    HungInput() { TestFiles::write(output, "old"); }

    void SetUp() override {
#ifdef EDITOREXPORT_SANITIZED
        GTEST_SKIP() << "nothing can be preloaded before a sanitizer";
#endif
    }
    void prepare(Program& program, const Hang& hang) const {
        program.setEnvironment("LD_PRELOAD", HANG_SHIM);
        program.setEnvironment("HANG_FILE", "share.mov");
        program.setEnvironment("HANG_CALL", hang.call);
        program.setEnvironment("HANG_THREAD", hang.thread);
        program.setEnvironment("HANG_AFTER", hang.after);
        program.setEnvironment("HANG_MARK", mark);
    }
    std::vector<std::string> command() const {
        return {"render", *folder / "share.mov", "-p", "mp4-h264-480p", "-o", output, "--overwrite"};
    }
    bool waitUntilHung() const {
        return TestSupport::waitUntil([this] { return QFileInfo::exists(QString::fromStdString(mark)); });
    }

    static TestMedia::Folder* folder;
    const TestMedia::Folder place, elsewhere;
    const std::string output = place / "film.mp4";
    const std::string mark = elsewhere / "hung";
};

TestMedia::Folder* HungInput::folder = nullptr;

TEST_P(HungInput, KeepsNoStopFromComingToItsEndAndIsNamed) {
    Program program(command());
    prepare(program, GetParam());
    program.start();
    ASSERT_TRUE(waitUntilHung());
    program.signal(SIGTERM);
    const Result result = program.finish();
    EXPECT_TRUE(result.ended);
    EXPECT_EQ(result.code, 143) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("stopped, nothing was written"))) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("share.mov"))) << result.errors.toStdString();
    EXPECT_EQ(TestFiles::read(output), "old");
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList(QStringLiteral("film.mp4")));
}

INSTANTIATE_TEST_SUITE_P(At, HungInput,
                         testing::Values(Hang{"Opening", "open", "editor-export", "0"},
                                         Hang{"Probing", "read", "editor-export", "0"},
                                         Hang{"ProbingOn", "read", "editor-export", "1"},
                                         Hang{"SeekingWhileProbing", "lseek", "editor-export", "1"},
                                         Hang{"OpeningPictures", "open", "kestra-enc0", "0"},
                                         Hang{"OpeningSound", "open", "kestra-enc1", "0"},
                                         Hang{"ReadingPictures", "read", "kestra-enc0", "5"},
                                         Hang{"ReadingSound", "read", "kestra-enc1", "5"},
                                         Hang{"SeekingPictures", "lseek", "kestra-enc0", "1"},
                                         Hang{"SeekingSound", "lseek", "kestra-enc1", "1"}),
                         [](const auto& testCase) { return std::string(testCase.param.name); });

} // namespace
