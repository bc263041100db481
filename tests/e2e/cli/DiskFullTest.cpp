// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <QFileInfo>
#include <gtest/gtest.h>

using TestCli::Program;
using TestCli::Result;

namespace {

class DiskFull : public ::testing::TestWithParam<const char*> {
protected:
    DiskFull() {
        TestMedia::FlashBeep media;
        media.frames = 50;
        TestMedia::makeFlashBeep(clip, media);
    }

    std::vector<std::string> command(const std::string& output) const {
        return {"render", clip, "-p", GetParam(), "-o", output, "--overwrite", "--progress", "none"};
    }
    /// What a run that has room enough writes; runs with less must fail from the first byte to the last.
    qint64 wholeSize() const {
        EXPECT_EQ(TestCli::run(command(folder / "whole")).code, 0);
        return QFileInfo(QString::fromStdString(folder / "whole")).size();
    }

    const TestMedia::Folder folder;
    const std::string clip = folder / "clip.mov";
};

TEST_P(DiskFull, AFailingWriteAnywhereFailsTheExportAndKeepsTheOldFile) {
    const qint64 whole = wholeSize();
    const TestMedia::Folder place;
    const std::string output = place / "film";
    TestFiles::write(output, "old");
    const std::string preset = GetParam();
    // Of what is left out, and of colours that the file cannot tell.
    const int notes = preset == "wav" ? 1 : preset == "webp-webp-480p" ? 2 : 0;
    for (const qint64 room : {qint64(0), qint64(100), qint64(5000), whole / 2, whole - 1000, whole - 1}) {
        Program program(command(output));
        // ThreadSanitizer writes a file of its own there before the program begins, and would end it for lack of room.
        program.setEnvironment("TEST_TMPDIR", "/nowhere");
        program.setWrapper({QStringLiteral("prlimit"), QStringLiteral("--fsize=%1").arg(room)});
        const Result result = program.run();
        EXPECT_EQ(result.code, 1) << room << " of " << whole << " bytes: " << result.errors.toStdString();
        EXPECT_EQ(result.errorLines().size(), notes + 1) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains(QString::fromStdString(output))) << result.errors.toStdString();
        EXPECT_EQ(TestFiles::read(output), "old");
        EXPECT_EQ(TestFiles::namesIn(place / "").size(), 1);
    }
}

TEST_P(DiskFull, AFullFileSystemIsNamed) {
    const qint64 whole = wholeSize();
    const std::string mountPoint = folder / "small";
    const QString script =
        QStringLiteral("mkdir -p '%1' && mount -t tmpfs -o size=%2k none '%1' || exit 77; shift; "
                       "echo old > '%1/film'; \"$@\"; code=$?; "
                       "test \"$(ls -A '%1')\" = film && test \"$(cat '%1/film')\" = old || exit 88; "
                       "exit $code");
    for (const qint64 kibibytes : {qint64(8), whole / 2048, whole / 1024 - 4}) {
        Program program(command(mountPoint + "/film"));
        // A mount of its own, which ends with the program.
        program.setWrapper({QStringLiteral("unshare"), QStringLiteral("-m"), QStringLiteral("sh"), QStringLiteral("-c"),
                            script.arg(QString::fromStdString(mountPoint)).arg(kibibytes), QStringLiteral("sh"),
                            QStringLiteral("-")});
        const Result result = program.run();
        if (result.code == 77 || result.errors.contains(QStringLiteral("unshare")))
            GTEST_SKIP() << "no right to mount: " << result.errors.toStdString();
        EXPECT_EQ(result.code, 1) << kibibytes << " KiB: " << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains(QStringLiteral("disk full"))) << result.errors.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Containers, DiskFull,
                         ::testing::Values("mp4-h264-480p", "mkv-ffv1-flac", "wav", "webp-webp-480p"));

} // namespace
