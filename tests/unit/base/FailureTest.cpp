// SPDX-License-Identifier: GPL-3.0-or-later
// One table from the system's errors to the reasons that the user is told, whoever met them.
#include "Kestra/Proc/Failure.h"
#include <boost/exception/get_error_info.hpp>
#include <cerrno>
#include <gtest/gtest.h>

using namespace Kestra;
using Proc::CodeOfSystemError;
using Proc::TranscodingError;

namespace {

constexpr TranscodingError DOINGS[] = {TranscodingError::OutputFailed, TranscodingError::OutputNotWritable,
                                       TranscodingError::SourceUnreadable};

} // namespace

TEST(SystemErrors, OfAFullDiskAndOfMemoryAreThoseWhateverWasBeingDone) {
    for (const TranscodingError doing : DOINGS) {
        for (const int error : {ENOSPC, EDQUOT, EFBIG})
            EXPECT_EQ(CodeOfSystemError(error, doing), TranscodingError::DiskFull) << error;
        EXPECT_EQ(CodeOfSystemError(ENOMEM, doing), TranscodingError::OutOfMemory);
        EXPECT_EQ(CodeOfSystemError(EROFS, doing), TranscodingError::OutputNotWritable);
    }
}

TEST(SystemErrors, OfAPathMeanThatItCannotBeWrittenOnlyWhereItIsAnOutput) {
    for (const int error : {EACCES, EPERM, ENOENT, ENOTDIR, EISDIR, ELOOP, ENAMETOOLONG, ENXIO, ETXTBSY, EBUSY}) {
        EXPECT_EQ(CodeOfSystemError(error, TranscodingError::OutputFailed), TranscodingError::OutputNotWritable);
        EXPECT_EQ(CodeOfSystemError(error, TranscodingError::SourceUnreadable), TranscodingError::SourceUnreadable);
    }
}

TEST(SystemErrors, ThatSayNothingElseAreWhatWasBeingDone) {
    for (const TranscodingError doing : DOINGS)
        for (const int error : {EIO, EINVAL, ECANCELED, EEXIST, 0})
            EXPECT_EQ(CodeOfSystemError(error, doing), doing) << error;
}

TEST(SystemErrors, AreThrownWithReasonAndPlace) {
    try {
        Proc::FailAsSystem(ENOSPC, TranscodingError::OutputFailed, "The film cannot be written");
    } catch (const Proc::ProcException& error) {
        EXPECT_STREQ(error.what(), "The film cannot be written: No space left on device");
        EXPECT_EQ(*boost::get_error_info<TagErrorCode>(error), static_cast<int>(TranscodingError::DiskFull));
        const char* const* file = boost::get_error_info<boost::throw_file>(error);
        ASSERT_TRUE(file);
        EXPECT_NE(std::string(*file).find("FailureTest.cpp"), std::string::npos) << *file;
        return;
    }
    FAIL() << "nothing was thrown";
}
