// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/LeftoverSweep.h"
#include "ExportCore/OutputTransaction.h"
#include "ExportCore/PrivateName.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

using ExportCore::LeftoverSweep;

namespace {

class Sweep : public ::testing::Test {
protected:
    int run() const { return LeftoverSweep::run(QByteArray::fromStdString(folder / "")); }
    QStringList names() const { return TestFiles::namesIn(folder / ""); }

    /// A name as the run of a dead process makes it: no process has such a start time.
    static std::string deadName(unsigned counter) {
        ExportCore::PrivateName name;
        name.process = 1;
        name.processStart = 1;
        return name.toName(counter, "mp4").toStdString();
    }

    TestMedia::Folder folder;
    const std::string dead = folder / deadName(0);
};

TEST_F(Sweep, RemovesWhatADeadRunLeft) {
    TestFiles::write(dead, "half");
    EXPECT_EQ(run(), 1);
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(Sweep, LeavesForeignFilesAlone) {
    for (const char* name : {"film.mp4", ".hidden", ".editor-export-notes.txt", ".editor-export-1-1.mp4",
                             ".editor-export-999999-5-1.my notes.txt", ".editor-export-999999-5-1.mp4"})
        TestFiles::write(folder / name, "mine");
    TestFiles::write(folder / (deadName(0) + ".bak"), "mine");
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(names().size(), 7);
}

TEST_F(Sweep, LeavesAFileAloneThatSomebodyGaveASecondName) {
    TestFiles::write(dead, "half");
    ASSERT_EQ(link(dead.c_str(), (folder / "rescued.mp4").c_str()), 0);
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(names().size(), 2);
}

TEST_F(Sweep, LeavesTheFileOfALivingRunAlone) {
    ExportCore::OutputTarget target;
    target.path = QByteArray::fromStdString(folder / "film.mp4");
    target.folder = QByteArray::fromStdString(folder / "");
    const ExportCore::OutputTransaction transaction(target, "mp4");
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(names().size(), 1);
}

TEST_F(Sweep, ALockSavesTheFileOfAWriterThatCannotBeSeen) {
    TestFiles::write(dead, "half");
    const int file = open(dead.c_str(), O_RDWR);
    ASSERT_EQ(flock(file, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(names().size(), 1);
    close(file);
    EXPECT_EQ(run(), 1);
}

TEST_F(Sweep, DoesNotFollowLinksAndDoesNotHangOnPipes) {
    const std::string victim = folder / "victim";
    TestFiles::write(victim, "mine");
    ASSERT_EQ(symlink(victim.c_str(), dead.c_str()), 0);
    ASSERT_EQ(mkfifo((folder / deadName(1)).c_str(), 0600), 0);
    ASSERT_EQ(mkdir((folder / deadName(2)).c_str(), 0700), 0);
    EXPECT_EQ(run(), 0);
    EXPECT_EQ(TestFiles::read(victim), "mine");
    EXPECT_EQ(names().size(), 4);
}

TEST_F(Sweep, AMissingFolderIsNoMatter) {
    EXPECT_EQ(LeftoverSweep::run("/nowhere/at/all"), 0);
}

} // namespace
