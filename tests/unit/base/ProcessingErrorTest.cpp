// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/ProcessingError.h"
#include "Kestra/Proc/ProcException.h"
#include <cerrno>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <new>
#include <set>
#include <stdexcept>
#include <system_error>

namespace Kestra::Proc {
namespace {

template <class E>
ProcessingError From(const E& exception) {
    return ProcessingError::MakeProcessingErrorFromException(std::make_exception_ptr(exception));
}

TEST(ProcessingError, TakesCodeAndSentenceFromAProcException) {
    const auto error = From(ProcException(TranscodingError::DiskFull, "There is no room left on /export."));
    EXPECT_EQ(error.GetCode(), TranscodingError::DiskFull);
    EXPECT_EQ(error.GetDescription(), "There is no room left on /export.");
}

TEST(ProcessingError, PrefersTheAttachedDescription) {
    ProcException exception(TranscodingError::CodecRefused, "avcodec_open2");
    exception << TagDescription("The encoder refuses 3000 frames per second.");
    EXPECT_EQ(From(exception).GetDescription(), "The encoder refuses 3000 frames per second.");
}

TEST(ProcessingError, ReadsTheRecordsOfAnExceptionThatWasThrown) {
    std::exception_ptr caught;
    try {
        KESTRA_THROW(FilterException("inner") << TagDescription("Method not implemented")
                                              << TagErrorCode(static_cast<int>(TranscodingError::NotSupported)));
    } catch (...) {
        caught = std::current_exception();
    }
    const auto error = ProcessingError::MakeProcessingErrorFromException(caught);
    EXPECT_EQ(error.GetCode(), TranscodingError::NotSupported);
    EXPECT_EQ(error.GetDescription(), "Method not implemented");
}

TEST(ProcessingError, IsUnknownWithoutACode) {
    const auto error = From(std::runtime_error("something"));
    EXPECT_EQ(error.GetCode(), TranscodingError::Unknown);
    EXPECT_EQ(error.GetDescription(), "something");
}

TEST(ProcessingError, KnowsLackOfMemoryAndBadArgumentsByType) {
    EXPECT_EQ(From(std::bad_alloc()).GetCode(), TranscodingError::OutOfMemory);
    EXPECT_EQ(From(std::bad_alloc()).GetDescription(),
              "There is too little memory: smaller pictures, or fewer exports at a time, take less");
    EXPECT_EQ(From(std::system_error(EAGAIN, std::system_category())).GetCode(), TranscodingError::OutOfMemory)
        << "a thread for which there was no room";
    EXPECT_EQ(From(std::system_error(EPERM, std::system_category())).GetCode(), TranscodingError::Unknown);
    EXPECT_EQ(From(std::invalid_argument("x")).GetCode(), TranscodingError::InvalidArgument);
}

TEST(ProcessingError, HasASentenceForANullPointerAndForForeignTypes) {
    const auto none = ProcessingError::MakeProcessingErrorFromException(nullptr);
    EXPECT_EQ(none.GetCode(), TranscodingError::Unknown);
    EXPECT_FALSE(none.GetDescription().empty());
    const auto foreign = From(42);
    EXPECT_EQ(foreign.GetCode(), TranscodingError::Unknown);
    EXPECT_FALSE(foreign.GetDescription().empty());
}

TEST(TranscodingError, HasANameOfItsOwnForEveryCode) {
    std::set<std::string> names;
    const int last = static_cast<int>(TranscodingError::NotSupported);
    for (int code = 0; code <= last; ++code) {
        names.insert(TranscodingErrorToString(static_cast<TranscodingError>(code)));
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(last) + 1);
    EXPECT_STREQ(TranscodingErrorToString(TranscodingError::DiskFull), "disk full");
}

TEST(TranscodingError, IsListedForUsersWithNumberNameAndMeaning) {
    std::ifstream page(ERRORS_PAGE);
    const std::string text{std::istreambuf_iterator<char>(page), {}};
    const int last = static_cast<int>(TranscodingError::NotSupported);
    for (int code = 0; code <= last; ++code) {
        const std::string name = TranscodingErrorToString(static_cast<TranscodingError>(code));
        EXPECT_NE(text.find("\n| " + std::to_string(code) + " | " + name + " | "), std::string::npos) << name;
    }
    EXPECT_EQ(text.find("\n| " + std::to_string(last + 1) + " |"), std::string::npos);
}

TEST(TranscodingError, CallsANumberThatIsNoneUnknown) {
    EXPECT_STREQ(TranscodingErrorToString(static_cast<TranscodingError>(12345)), "unknown error");
    EXPECT_STREQ(TranscodingErrorToString(static_cast<TranscodingError>(-1)), "unknown error");
}

} // namespace
} // namespace Kestra::Proc
