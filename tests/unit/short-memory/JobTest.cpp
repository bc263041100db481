// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/ExportJob.h"
#include "support/WaitUntil.h"
#include "unit/short-memory/ShortMemory.h"
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

using ExportCore::ExportJob;
using ExportCore::ExportOutcome;
using TestSupport::ShortMemory;

namespace {

class JobWithoutMemory : public ::testing::Test {
protected:
    JobWithoutMemory() {
        QObject::connect(&job, &ExportJob::finished, &job, [this](const ExportOutcome& outcome) {
            ++ends;
            code = outcome.error.GetCode();
            isOutOfMemory = outcome.error.GetDescription() == "out of memory";
            hasWords = !outcome.error.GetDescription().empty();
            status = outcome.status;
        });
    }

    /// From the failure to the end, on this thread.
    void failWithoutMemory(const std::exception_ptr& error) {
        const ShortMemory shortage;
        job.failInEventLoop(error, nullptr);
        for (int turn = 0; turn < 10; ++turn)
            QCoreApplication::processEvents();
        EXPECT_GT(shortage.refusals(), 0);
    }

    ExportJob job{ExportCore::ExportRequest()};
    int ends = 0;
    Kestra::Proc::TranscodingError code = Kestra::Proc::TranscodingError::Unknown;
    ExportOutcome::Status status = ExportOutcome::Status::Done;
    bool isOutOfMemory = false;
    bool hasWords = false;
};

TEST_F(JobWithoutMemory, TellsItsFailure) {
    failWithoutMemory(std::make_exception_ptr(std::runtime_error("a sentence that is too long for the string itself")));
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(status, ExportOutcome::Status::Failed);
    EXPECT_EQ(code, Kestra::Proc::TranscodingError::OutOfMemory);
    EXPECT_TRUE(isOutOfMemory);
}

TEST_F(JobWithoutMemory, TellsThatThereWasNone) {
    failWithoutMemory(std::make_exception_ptr(std::bad_alloc()));
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(status, ExportOutcome::Status::Failed);
    EXPECT_EQ(code, Kestra::Proc::TranscodingError::OutOfMemory);
    EXPECT_TRUE(hasWords);
}

} // namespace
