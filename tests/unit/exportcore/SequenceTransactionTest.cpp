// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SequenceTransaction.h"
#include "ExportCore/FolderSteps.h"
#include "ExportCore/LeftoverSweep.h"
#include "ExportCore/PictureSwap.h"
#include "ExportCore/PrivateName.h"
#include "HungCall.h"
#include "Kestra/Proc/ProcException.h"
#include "Kestra/Util/RemovalOnTheSpot.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using ExportCore::Descriptor;
using ExportCore::FolderSteps;
using ExportCore::LeftoverSweep;
using ExportCore::PictureSwap;
using ExportCore::SequenceTarget;
using ExportCore::SequenceTransaction;
using TestSystem::happen;
using TestSystem::whileLooking;

namespace {

// How many of the next renamings are made before all others fail, in this process; below 0: all are made.
int renamings = -1;
bool changesNoModes = false;
// Whether the file system is one of the poorest, which know no owners, no modes and nothing but the oldest renaming.
bool isPoor = false;
// What happens while the next such call hangs, in this process, once.
std::function<void()> whileMoving, whileSyncing, whileRemoving;

} // namespace

// The system's, but for the failures that the tests ask for.
extern "C" __attribute__((visibility("default"))) int renameat2(int fromFolder, const char* from, int toFolder,
                                                                const char* to, unsigned flags) noexcept {
    if (renamings == 0) {
        errno = EIO;
        return -1;
    }
    renamings -= renamings > 0 ? 1 : 0;
    happen(whileMoving);
    if (isPoor) {
        errno = EINVAL;
        return -1;
    }
    return static_cast<int>(syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

extern "C" __attribute__((visibility("default"))) int fchmodat(int folder, const char* name, mode_t mode,
                                                               int) noexcept {
    if (changesNoModes || isPoor) {
        errno = isPoor ? EOPNOTSUPP : EIO;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fchmodat, folder, name, mode));
}

extern "C" __attribute__((visibility("default"))) int fchownat(int folder, const char* name, uid_t owner, gid_t group,
                                                               int flags) noexcept {
    if (isPoor) {
        errno = ENOSYS;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fchownat, folder, name, owner, group, flags));
}

extern "C" __attribute__((visibility("default"))) int linkat(int fromFolder, const char* from, int toFolder,
                                                             const char* to, int flags) noexcept {
    if (isPoor) {
        errno = EPERM;
        return -1;
    }
    return static_cast<int>(syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}

extern "C" __attribute__((visibility("default"))) int fsync(int file) {
    happen(whileSyncing);
    return static_cast<int>(syscall(SYS_fsync, file));
}

extern "C" __attribute__((visibility("default"))) int unlinkat(int folder, const char* name, int flags) noexcept {
    happen(whileRemoving);
    return static_cast<int>(syscall(SYS_unlinkat, folder, name, flags));
}

namespace {

class Pictures : public ::testing::Test {
protected:
    SequenceTarget target(bool replace = false) const {
        SequenceTarget result;
        result.path = QByteArray::fromStdString(frames);
        result.existed = access(frames.c_str(), F_OK) == 0;
        result.replace = replace;
        result.name = {"shot_", ".png", 3};
        return result;
    }
    void makeFolder() const { ASSERT_EQ(mkdir(frames.c_str(), 0755), 0); }
    static void fill(const SequenceTransaction& transaction, int count) {
        const std::string path = transaction.privatePath().toStdString();
        for (int number = 0; number < count; ++number)
            TestFiles::write(path + "/shot_00" + std::to_string(number) + ".png", "new");
    }
    void writeOld(const std::vector<const char*>& names) const {
        for (const char* name : names)
            TestFiles::write(frames + '/' + name, "old");
    }
    QString all() const { return TestFiles::namesIn(frames).join(QLatin1Char(' ')); }
    std::string content(const char* name) const { return TestFiles::read(frames + '/' + name).toStdString(); }

    TestMedia::Folder folder;
    const std::string frames = folder / "frames";
};

TEST_F(Pictures, ANewFolderIsThereWholeAfterTheCommitAndNotBefore) {
    SequenceTransaction transaction(target());
    fill(transaction, 3);
    EXPECT_EQ(access(frames.c_str(), F_OK), -1);
    EXPECT_FALSE(transaction.isCommitted());
    transaction.sync();
    EXPECT_TRUE(transaction.commit());
    EXPECT_TRUE(transaction.isCommitted());
    EXPECT_EQ(all().toStdString(), "shot_000.png shot_001.png shot_002.png");
    EXPECT_EQ(TestFiles::namesIn(folder / ""), QStringList(QStringLiteral("frames")));
    transaction.rollback();
    EXPECT_EQ(content("shot_002.png"), "new") << "a rollback comes too late";
}

TEST_F(Pictures, WithoutACommitNothingIsLeft) {
    {
        const SequenceTransaction transaction(target());
        fill(transaction, 3);
        EXPECT_EQ(TestFiles::namesIn(folder / "").size(), 1);
    }
    EXPECT_TRUE(TestFiles::namesIn(folder / "").isEmpty());
    makeFolder();
    writeOld({"shot_000.png"});
    {
        const SequenceTransaction transaction(target(true));
        fill(transaction, 3);
    }
    EXPECT_EQ(all().toStdString(), "shot_000.png");
    EXPECT_EQ(content("shot_000.png"), "old");
}

TEST_F(Pictures, AFolderThatAppearedMeanwhileIsNotTouched) {
    SequenceTransaction transaction(target());
    fill(transaction, 1);
    makeFolder();
    writeOld({"mine.txt"});
    EXPECT_THROW(transaction.commit(), Kestra::Proc::ProcException);
    transaction.rollback();
    EXPECT_EQ(all().toStdString(), "mine.txt");
    EXPECT_EQ(TestFiles::namesIn(folder / ""), QStringList(QStringLiteral("frames")));
}

TEST_F(Pictures, AFolderThatIsThereKeepsItselfAndWhatElseItHolds) {
    makeFolder();
    ASSERT_EQ(chmod(frames.c_str(), 0750), 0);
    writeOld({"notes.txt", "shot_1.png"});
    struct stat before = {}, after = {};
    ASSERT_EQ(::stat(frames.c_str(), &before), 0);
    SequenceTransaction transaction(target());
    EXPECT_EQ(TestFiles::modeOf(transaction.privatePath().toStdString()), 0700U);
    fill(transaction, 2);
    EXPECT_TRUE(transaction.commit());
    ASSERT_EQ(::stat(frames.c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_EQ(TestFiles::modeOf(frames), 0750U);
    EXPECT_EQ(all().toStdString(), "notes.txt shot_000.png shot_001.png shot_1.png");
    EXPECT_EQ(content("notes.txt") + content("shot_000.png") + content("shot_1.png"), "oldnewold");
}

TEST_F(Pictures, OldOnesAllGoAndTheirModesStay) {
    makeFolder();
    writeOld({"shot_000.png", "shot_001.png", "shot_007.png", "shot_1000.png", "other_000.png"});
    ASSERT_EQ(chmod((frames + "/shot_001.png").c_str(), 0600), 0);
    SequenceTransaction transaction(target(true));
    fill(transaction, 2);
    EXPECT_TRUE(transaction.commit());
    EXPECT_EQ(all().toStdString(), "other_000.png shot_000.png shot_001.png") << "no tail of a longer one";
    EXPECT_EQ(content("shot_000.png") + content("other_000.png"), "newold");
    EXPECT_EQ(TestFiles::modeOf(frames + "/shot_001.png"), 0600U);
}

TEST_F(Pictures, WithoutTheWordNothingIsReplacedThatAppearedMeanwhile) {
    makeFolder();
    SequenceTransaction transaction(target(false));
    fill(transaction, 2);
    writeOld({"shot_001.png"});
    EXPECT_THROW(transaction.commit(), Kestra::Proc::ProcException);
    transaction.rollback();
    EXPECT_EQ(all().toStdString(), "shot_001.png");
    EXPECT_EQ(content("shot_001.png"), "old");
}

TEST_F(Pictures, NeedNoBetterFileSystemThanOneThatRenames) {
    makeFolder();
    writeOld({"shot_000.png", "shot_007.png", "notes.txt"});
    isPoor = true;
    SequenceTransaction transaction(target(true));
    fill(transaction, 2);
    EXPECT_TRUE(transaction.commit());
    EXPECT_EQ(all().toStdString(), "notes.txt shot_000.png shot_001.png");
    EXPECT_EQ(content("shot_000.png") + content("shot_001.png"), "newnew");
    SequenceTransaction second(target(false));
    fill(second, 3);
    EXPECT_THROW(second.commit(), Kestra::Proc::ProcException) << "nobody said that they may be replaced";
    second.rollback();
    isPoor = false;
    EXPECT_EQ(all().toStdString(), "notes.txt shot_000.png shot_001.png");
    EXPECT_EQ(content("shot_000.png") + content("shot_001.png"), "newnew");
}

TEST_F(Pictures, WhatIsNoFileStopsTheSwapBeforeItBegins) {
    makeFolder();
    writeOld({"shot_000.png"});
    SequenceTransaction transaction(target(true));
    fill(transaction, 2);
    ASSERT_EQ(mkdir((frames + "/shot_001.png").c_str(), 0755), 0);
    writeOld({"shot_001.png/precious"});
    EXPECT_THROW(transaction.commit(), Kestra::Proc::ProcException);
    transaction.rollback();
    EXPECT_EQ(all().toStdString(), "shot_000.png shot_001.png");
    EXPECT_EQ(content("shot_000.png") + content("shot_001.png/precious"), "oldold");
}

TEST_F(Pictures, AfterForbidThereIsNoCommit) {
    SequenceTransaction transaction(target());
    fill(transaction, 1);
    transaction.forbid();
    EXPECT_THROW(transaction.commit(), Kestra::Proc::ProcException);
    transaction.rollback();
    EXPECT_TRUE(TestFiles::namesIn(folder / "").isEmpty());
}

TEST_F(Pictures, AFolderIsNotMovedOnceItIsForbidden) {
    {
        SequenceTransaction transaction(target());
        fill(transaction, 1);
        whileLooking = [&] { transaction.rollback(); };
        EXPECT_THROW(transaction.commit(), Kestra::Proc::ProcException);
        EXPECT_EQ(whileLooking, nullptr);
        EXPECT_FALSE(transaction.isCommitted());
        EXPECT_EQ(access(frames.c_str(), F_OK), -1);
    }
    EXPECT_TRUE(TestFiles::namesIn(folder / "").isEmpty());
}

TEST_F(Pictures, OldOnesComeBackWhereASwapIsForbiddenBeforeTheLastHasGone) {
    makeFolder();
    writeOld({"shot_000.png", "shot_001.png"});
    {
        SequenceTransaction transaction(target(true));
        fill(transaction, 3);
        bool wentOn = false;
        whileMoving = [&] { transaction.rollback(); };
        whileSyncing = [&] { wentOn = true; };
        EXPECT_THROW(transaction.commit(), Kestra::Proc::ProcException);
        whileSyncing = nullptr;
        EXPECT_EQ(whileMoving, nullptr);
        EXPECT_FALSE(wentOn);
        EXPECT_FALSE(transaction.isCommitted());
        EXPECT_EQ(content("shot_000.png") + content("shot_001.png"), "oldold");
    }
    {
        SequenceTransaction transaction(target(true));
        fill(transaction, 3);
        whileSyncing = [&] { transaction.rollback(); }; // all have gone, and nothing says so
        EXPECT_THROW(transaction.commit(), Kestra::Proc::ProcException);
        EXPECT_EQ(whileSyncing, nullptr);
        EXPECT_FALSE(transaction.isCommitted());
    }
    EXPECT_EQ(all().toStdString(), "shot_000.png shot_001.png") << "and nothing is left of the new ones";
    EXPECT_EQ(content("shot_000.png") + content("shot_001.png"), "oldold");
}

TEST_F(Pictures, ASwapThatIsForbiddenOnceAllOldOnesHaveGoneIsCompleted) {
    makeFolder();
    writeOld({"shot_000.png", "shot_001.png"});
    SequenceTransaction transaction(target(true));
    fill(transaction, 3);
    whileSyncing = [&] { whileMoving = [&] { transaction.rollback(); }; }; // with the first new one
    EXPECT_TRUE(transaction.commit());
    EXPECT_EQ(whileMoving, nullptr);
    EXPECT_TRUE(transaction.isCommitted());
    EXPECT_EQ(all().toStdString(), "shot_000.png shot_001.png shot_002.png");
    EXPECT_EQ(content("shot_000.png") + content("shot_001.png"), "newnew");
}

TEST_F(Pictures, ThatStandAtTheirPlaceAreDoneWhileOldOnesAreStillBeingRemoved) {
    makeFolder();
    writeOld({"shot_000.png"});
    SequenceTransaction transaction(target(true));
    fill(transaction, 1);
    bool wasDone = false;
    whileRemoving = [&] { wasDone = transaction.isCommitted(); };
    EXPECT_TRUE(transaction.commit());
    EXPECT_EQ(whileRemoving, nullptr);
    EXPECT_TRUE(wasDone);
}

TEST_F(Pictures, PrivateOnesAreNotReplacedByThoseThatOthersMayRead) {
    makeFolder();
    writeOld({"shot_000.png"});
    ASSERT_EQ(chmod((frames + "/shot_000.png").c_str(), 0600), 0);
    SequenceTransaction transaction(target(true));
    fill(transaction, 1);
    changesNoModes = true;
    EXPECT_THROW(transaction.commit(), Kestra::Proc::ProcException);
    changesNoModes = false;
    transaction.rollback();
    EXPECT_EQ(all().toStdString(), "shot_000.png");
    EXPECT_EQ(content("shot_000.png"), "old");
    EXPECT_EQ(TestFiles::modeOf(frames + "/shot_000.png"), 0600U);
}

TEST_F(Pictures, AnEndOnTheSpotThatHasBegunMeetsNoOldOnes) {
    makeFolder();
    writeOld({"shot_000.png"});
    SequenceTransaction transaction(target(true));
    fill(transaction, 1);
    // Deeper than such an end goes, so that it is not through with the folder.
    std::string deep = transaction.privatePath().toStdString();
    for (int level = 0; level < 10; ++level) {
        deep += "/d";
        ASSERT_EQ(mkdir(deep.c_str(), 0700), 0);
    }
    Kestra::Util::RemovalOnTheSpot::removeAll();
    ASSERT_EQ(access(transaction.privatePath().constData(), F_OK), 0);
    EXPECT_THROW(transaction.commit(), Kestra::Proc::ProcException);
    transaction.rollback();
    EXPECT_EQ(all().toStdString(), "shot_000.png");
    EXPECT_EQ(content("shot_000.png"), "old");
}

TEST_F(Pictures, OldOnesThatCannotComeBackStayWhereTheReasonSays) {
    makeFolder();
    writeOld({"shot_000.png", "shot_001.png"});
    SequenceTransaction transaction(target(true));
    fill(transaction, 2);
    const std::string own = transaction.privatePath().toStdString();
    renamings = 1; // the first old one goes
    std::string reason;
    try {
        transaction.commit();
    } catch (const Kestra::Proc::ProcException& error) {
        reason = error.what();
    }
    renamings = -1;
    EXPECT_NE(reason.find('"' + own.substr(own.rfind('/') + 1) + '"'), std::string::npos) << reason;
    transaction.rollback();
    EXPECT_EQ(TestFiles::namesIn(own + "/going").size(), 1);
    EXPECT_EQ(all().split(QLatin1Char(' ')).filter(QStringLiteral("shot")).size(), 1);
}

/// What a dead run left in the folder, as far as it had come.
class BrokenOff : public Pictures {
protected:
    BrokenOff() {
        ExportCore::PrivateName name; // of a process that does not run
        name.process = 1;
        name.processStart = 1;
        own = frames + '/' + name.toName(0, {}).toStdString();
        makeFolder();
        make(own);
    }
    static void make(const std::string& path) { ASSERT_EQ(mkdir(path.c_str(), 0700), 0); }
    int sweep() const { return LeftoverSweep::run(QByteArray::fromStdString(frames)); }

    std::string own;
};

TEST_F(BrokenOff, BeforeTheCommitItGoes) {
    TestFiles::write(own + "/shot_000.png", "new");
    writeOld({"shot_000.png"});
    EXPECT_EQ(sweep(), 1);
    EXPECT_EQ(all().toStdString(), "shot_000.png");
    EXPECT_EQ(content("shot_000.png"), "old");
}

TEST_F(BrokenOff, WhileOldOnesWereGoingTheyComeBack) {
    make(own + "/going");
    TestFiles::write(own + "/going/shot_000.png", "old");
    TestFiles::write(own + "/shot_000.png", "new");
    writeOld({"shot_001.png"});
    EXPECT_EQ(sweep(), 1);
    EXPECT_EQ(all().toStdString(), "shot_000.png shot_001.png");
    EXPECT_EQ(content("shot_000.png") + content("shot_001.png"), "oldold");
}

TEST_F(BrokenOff, OnceAllHadGoneTheNewOnesArrive) {
    make(own + "/gone");
    for (const char* name : {"/gone/shot_000.png", "/gone/shot_001.png", "/gone/shot_002.png"})
        TestFiles::write(own + name, "old");
    TestFiles::write(own + "/shot_001.png", "new");
    TestFiles::write(frames + "/shot_000.png", "new");
    EXPECT_EQ(sweep(), 1);
    EXPECT_EQ(all().toStdString(), "shot_000.png shot_001.png");
    EXPECT_EQ(content("shot_000.png") + content("shot_001.png"), "newnew");
}

TEST_F(BrokenOff, WhatIsInDoubtStays) {
    make(own + "/going");
    TestFiles::write(own + "/going/shot_000.png", "old");
    writeOld({"shot_000.png"}); // somebody has put another one there since
    EXPECT_EQ(sweep(), 0);
    EXPECT_EQ(TestFiles::read(own + "/going/shot_000.png"), "old");
}

TEST_F(BrokenOff, ThatOfALivingRunStays) {
    ASSERT_EQ(rmdir(own.c_str()), 0);
    const SequenceTransaction transaction(target());
    fill(transaction, 1);
    EXPECT_EQ(sweep(), 0);
    EXPECT_EQ(TestFiles::namesIn(transaction.privatePath().toStdString()).size(), 1);
}

TEST_F(BrokenOff, ASwapThatMeetsATakenNameOnItsWayLeavesTheFolderAsItWas) {
    for (const char* name : {"/shot_000.png", "/shot_001.png", "/shot_002.png"})
        TestFiles::write(own + name, "new");
    writeOld({"shot_001.png", "other_005.png"});
    const Descriptor outer(FolderSteps::open(AT_FDCWD, frames.c_str()));
    const Descriptor inner(FolderSteps::open(AT_FDCWD, own.c_str()));
    const std::atomic<bool> forbidden{false};
    PictureSwap swap(outer.Get(), inner.Get(), {"other_", ".png", 3}, forbidden); // so that shot_001.png is in the way
    EXPECT_EQ(swap.run(true), EEXIST);
    EXPECT_FALSE(swap.isStuck());
    EXPECT_EQ(content("shot_001.png") + content("other_005.png"), "oldold");
    EXPECT_EQ(TestFiles::namesIn(frames).size(), 3) << "they and the private folder";
    EXPECT_EQ(TestFiles::namesIn(own).size(), 3) << "and the new ones are back";
}

} // namespace
