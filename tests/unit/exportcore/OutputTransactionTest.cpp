// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/OutputTransaction.h"
#include "HungCall.h"
#include "Kestra/Proc/ProcException.h"
#include "Kestra/Proc/ProcessingError.h"
#include "Kestra/Util/RemovalOnTheSpot.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using ExportCore::OutputTarget;
using ExportCore::OutputTransaction;
using Kestra::Proc::ProcessingError;
using Kestra::Proc::TranscodingError;
using TestSystem::whileLooking;

std::function<void()> TestSystem::whileLooking;

namespace {

// How many of the next calls fail, in this process; see below.
int failingLocks = 0;
int failingStats = 0;
bool endsAtNextLock = false;

bool takesOne(int& count) {
    return count > 0 && count-- > 0;
}

} // namespace

// The system's, but for the failures that the tests ask for.
extern "C" __attribute__((visibility("default"))) int flock(int file, int operation) noexcept {
    if (endsAtNextLock) {
        Kestra::Util::RemovalOnTheSpot::removeAll();
        _exit(3);
    }
    if (takesOne(failingLocks)) {
        errno = EWOULDBLOCK;
        return -1;
    }
    return static_cast<int>(syscall(SYS_flock, file, operation));
}

extern "C" __attribute__((visibility("default"))) int lstat(const char* path, struct stat* state) noexcept {
    if (takesOne(failingStats)) {
        errno = EIO;
        return -1;
    }
    TestSystem::happen(whileLooking);
    return fstatat(AT_FDCWD, path, state, AT_SYMLINK_NOFOLLOW);
}

namespace {

class Transaction : public ::testing::Test {
protected:
    OutputTarget target(bool replace = false) const {
        OutputTarget result;
        result.path = QByteArray::fromStdString(path);
        result.folder = QByteArray::fromStdString(folder / "");
        result.folder.chop(1);
        result.replace = replace;
        struct stat state = {};
        if (::stat(path.c_str(), &state) == 0) {
            result.existed = true;
            result.mode = state.st_mode & 07777;
            result.owner = state.st_uid;
            result.group = state.st_gid;
        }
        return result;
    }
    static void fill(const OutputTransaction& transaction, const QByteArray& content = "new") {
        TestFiles::write(transaction.privatePath().toStdString(), content);
    }
    QStringList names() const { return TestFiles::namesIn(folder / ""); }
    static TranscodingError codeOf(const std::exception_ptr& error) {
        return ProcessingError::MakeProcessingErrorFromException(error).GetCode();
    }

    TestMedia::Folder folder;
    const std::string path = folder / "film.mp4";
};

TEST_F(Transaction, LeavesNothingBeforeAnEndOnTheSpotFromItsBeginningOn) {
    // The third file has been made and nobody has been told of it.
    OutputTransaction kept(target(), "mp4");
    OutputTransaction left(target(), "mp4");
    left.leave();
    endsAtNextLock = true;
    EXPECT_EXIT(OutputTransaction(target(), "mp4"), ::testing::ExitedWithCode(3), "");
    endsAtNextLock = false;
    EXPECT_EQ(names(), QStringList(QString::fromUtf8(QByteArray(left.privatePath()).split('/').last())));
}

TEST_F(Transaction, NothingStandsAtTheTargetBeforeTheCommit) {
    OutputTransaction transaction(target(), "mp4");
    fill(transaction);
    EXPECT_EQ(access(path.c_str(), F_OK), -1);
    EXPECT_EQ(names().size(), 1);
    EXPECT_TRUE(names()[0].startsWith(QLatin1Char('.')));
}

TEST_F(Transaction, AnotherNameIsTakenAndNothingIsLeftWhereOneCannotBeLockedOrLookedAt) {
    for (int* const failing : {&failingLocks, &failingStats}) {
        *failing = 1;
        const OutputTransaction transaction(target(), "mp4");
        EXPECT_EQ(*failing, 0);
        ASSERT_EQ(names().size(), 1);
        EXPECT_TRUE(transaction.privatePath().endsWith(names()[0].toUtf8()));
    }
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(Transaction, NothingIsLeftWhereNoNameCanBeLockedOrLookedAt) {
    for (int* const failing : {&failingLocks, &failingStats}) {
        *failing = 1'000'000;
        EXPECT_THROW(OutputTransaction(target(), "mp4"), Kestra::Proc::ProcException);
        *failing = 0;
        EXPECT_TRUE(names().isEmpty());
    }
}

TEST_F(Transaction, CommitPutsTheFileInPlaceAndLeavesNothingElse) {
    OutputTransaction transaction(target(), "mp4");
    fill(transaction);
    transaction.sync();
    EXPECT_TRUE(transaction.commit());
    EXPECT_EQ(TestFiles::read(path), "new");
    EXPECT_EQ(names(), QStringList(QStringLiteral("film.mp4")));
}

TEST_F(Transaction, WithoutACommitTheOldFileStays) {
    TestFiles::write(path, "old");
    {
        OutputTransaction transaction(target(true), "mp4");
        fill(transaction);
    }
    EXPECT_EQ(TestFiles::read(path), "old");
    EXPECT_EQ(names(), QStringList(QStringLiteral("film.mp4")));
}

TEST_F(Transaction, CommitReplacesTheOldFileAndKeepsItsMode) {
    TestFiles::write(path, "old");
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    OutputTransaction transaction(target(true), "mp4");
    EXPECT_EQ(TestFiles::modeOf(transaction.privatePath().toStdString()), 0600U) << "the old one could be secret";
    fill(transaction);
    transaction.commit();
    EXPECT_EQ(TestFiles::read(path), "new");
    EXPECT_EQ(TestFiles::modeOf(path), 0640U);
}

TEST_F(Transaction, ACommitThatHangsReplacesNothingOnceItIsForbidden) {
    TestFiles::write(path, "old");
    for (const bool replace : {true, false}) {
        OutputTransaction transaction(target(replace), "mp4");
        fill(transaction);
        whileLooking = [&] { transaction.forbid(); }; // by a rollback that hangs, too, before it has removed the file
        EXPECT_ANY_THROW(transaction.commit());
        EXPECT_EQ(whileLooking, nullptr);
        EXPECT_FALSE(transaction.isCommitted());
    }
    EXPECT_EQ(TestFiles::read(path), "old");
    ASSERT_EQ(unlink(path.c_str()), 0);
    OutputTransaction transaction(target(), "mp4");
    whileLooking = [&] { transaction.forbid(); };
    EXPECT_ANY_THROW(transaction.commit());
    EXPECT_EQ(access(path.c_str(), F_OK), -1);
}

TEST_F(Transaction, ANewFileHasTheModeThatTheUmaskLeaves) {
    const mode_t before = umask(027);
    OutputTransaction transaction(target(), "mp4");
    umask(before);
    fill(transaction);
    transaction.commit();
    EXPECT_EQ(TestFiles::modeOf(path), 0640U);
}

TEST_F(Transaction, AFileThatAppearedMeanwhileIsNotTouched) {
    OutputTransaction transaction(target(false), "mp4");
    fill(transaction);
    TestFiles::write(path, "somebody else's");
    EXPECT_ANY_THROW(transaction.commit());
    transaction.rollback();
    EXPECT_EQ(TestFiles::read(path), "somebody else's");
    EXPECT_EQ(names(), QStringList(QStringLiteral("film.mp4")));
}

TEST_F(Transaction, APipeThatAppearedMeanwhileIsNotReplaced) {
    OutputTransaction transaction(target(true), "mp4");
    fill(transaction);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_ANY_THROW(transaction.commit());
    struct stat state = {};
    ASSERT_EQ(lstat(path.c_str(), &state), 0);
    EXPECT_TRUE(S_ISFIFO(state.st_mode));
}

TEST_F(Transaction, AFolderThatAppearedMeanwhileIsNotReplaced) {
    OutputTransaction transaction(target(true), "mp4");
    fill(transaction);
    ASSERT_EQ(mkdir(path.c_str(), 0700), 0);
    EXPECT_ANY_THROW(transaction.commit());
}

TEST_F(Transaction, APrivateFileThatWasReplacedIsNotCommittedAndNotRemoved) {
    OutputTransaction transaction(target(), "mp4");
    const std::string own = transaction.privatePath().toStdString();
    ASSERT_EQ(unlink(own.c_str()), 0);
    TestFiles::write(own, "an impostor");
    EXPECT_ANY_THROW(transaction.commit());
    transaction.rollback();
    EXPECT_EQ(TestFiles::read(own), "an impostor");
    EXPECT_EQ(access(path.c_str(), F_OK), -1);
}

TEST_F(Transaction, RollbackAfterTheCommitKeepsTheFile) {
    OutputTransaction transaction(target(), "mp4");
    fill(transaction);
    transaction.commit();
    transaction.rollback();
    EXPECT_EQ(TestFiles::read(path), "new");
}

TEST_F(Transaction, RollbackBearsThatTheFileIsGone) {
    OutputTransaction transaction(target(), "mp4");
    ASSERT_EQ(unlink(transaction.privatePath().constData()), 0);
    transaction.rollback();
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(Transaction, TwoTransactionsOfOneTargetDoNotMeet) {
    OutputTransaction first(target(), "mp4"), second(target(), "mp4");
    EXPECT_NE(first.privatePath(), second.privatePath());
    fill(first, "first");
    fill(second, "second");
    first.commit();
    EXPECT_ANY_THROW(second.commit());
    EXPECT_EQ(TestFiles::read(path), "first");
}

TEST_F(Transaction, AMissingFolderIsAFailureWithItsName) {
    OutputTarget nowhere = target();
    nowhere.folder += "/missing";
    try {
        OutputTransaction transaction(nowhere, "mp4");
        FAIL() << "made";
    } catch (const std::exception& error) {
        EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
        EXPECT_EQ(codeOf(std::current_exception()), TranscodingError::OutputNotWritable);
    }
}

TEST_F(Transaction, ATargetWithTheLongestNameWorks) {
    OutputTarget longest = target();
    longest.path = longest.folder + '/' + QByteArray(255, 'x');
    OutputTransaction transaction(longest, "mp4");
    fill(transaction);
    transaction.commit();
    EXPECT_EQ(TestFiles::read(longest.path.toStdString()), "new");
}

} // namespace
