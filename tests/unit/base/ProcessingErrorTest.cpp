#include "Kestra/Proc/ProcessingError.h"
#include "Kestra/Proc/ProcException.h"
#include <gtest/gtest.h>
#include <new>
#include <set>
#include <stdexcept>

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

TEST(TranscodingError, CallsANumberThatIsNoneUnknown) {
    EXPECT_STREQ(TranscodingErrorToString(static_cast<TranscodingError>(12345)), "unknown error");
    EXPECT_STREQ(TranscodingErrorToString(static_cast<TranscodingError>(-1)), "unknown error");
}

} // namespace
} // namespace Kestra::Proc
