// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/Exception.h"
#include "Kestra/Proc/ProcException.h"
#include <algorithm>
#include <boost/exception/diagnostic_information.hpp>
#include <boost/exception/get_error_info.hpp>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>
#include <vector>

namespace Kestra {
namespace {

TEST(Exception, SaysItsMessage) {
    EXPECT_STREQ(Exception("no such preset").what(), "no such preset");
}

TEST(Exception, IsCaughtAsStdAndAsBoostException) {
    EXPECT_THROW(KESTRA_THROW(Exception("x")), std::exception);
    EXPECT_THROW(KESTRA_THROW(Exception("x")), boost::exception);
    EXPECT_THROW(KESTRA_THROW(Proc::FilterException("x")), Proc::ProcException);
    EXPECT_THROW(KESTRA_THROW(Proc::FilterException("x")), Exception);
}

TEST(Exception, KeepsItsRecordsThroughAThrow) {
    try {
        KESTRA_THROW(Exception("x") << TagDescription("Method not implemented") << TagCallStack(GetCallStack()));
    } catch (const Exception& error) {
        ASSERT_NE(boost::get_error_info<TagDescription>(error), nullptr);
        EXPECT_EQ(*boost::get_error_info<TagDescription>(error), "Method not implemented");
        ASSERT_NE(boost::get_error_info<TagCallStack>(error), nullptr);
        EXPECT_NE(boost::get_error_info<TagCallStack>(error)->Text().find("KeepsItsRecordsThroughAThrow"),
                  std::string::npos);
        EXPECT_NE(boost::diagnostic_information(error).find(" 0# "), std::string::npos);
    }
}

TEST(Exception, CarriesThePlaceWhereItWasThrown) {
    try {
        KESTRA_THROW(std::invalid_argument("bad"));
    } catch (const std::invalid_argument& error) {
        const std::string details = boost::diagnostic_information(error);
        EXPECT_NE(details.find("ExceptionTest.cpp"), std::string::npos) << details;
        EXPECT_NE(details.find("CarriesThePlaceWhereItWasThrown"), std::string::npos) << details;
    }
}

TEST(Exception, OfProcessingCarriesItsCode) {
    const Proc::ProcException error(Proc::TranscodingError::DiskFull, "There is no room left on /export.");
    ASSERT_NE(boost::get_error_info<TagErrorCode>(error), nullptr);
    EXPECT_EQ(*boost::get_error_info<TagErrorCode>(error), static_cast<int>(Proc::TranscodingError::DiskFull));
    const Proc::ProcException without("no code");
    EXPECT_EQ(boost::get_error_info<TagErrorCode>(without), nullptr);
}

TEST(CallStack, NamesTheCallerAndNotItself) {
    const std::string stack = GetCallStack().Text();
    EXPECT_EQ(stack.find("GetCallStack"), std::string::npos) << stack;
    const std::string firstLine = stack.substr(0, stack.find('\n'));
    EXPECT_NE(firstLine.find("NamesTheCallerAndNotItself"), std::string::npos) << stack;
}

TEST(CallStack, HasALineForEachFrame) {
    const std::string stack = GetCallStack().Text();
    EXPECT_GE(std::count(stack.begin(), stack.end(), '\n'), 3);
}

TEST(CallStack, IsTakenOnManyThreadsAtOnce) {
    std::vector<std::string> stacks(4);
    std::vector<std::thread> threads;
    for (auto& stack : stacks) {
        threads.emplace_back([&stack] { stack = GetCallStack().Text(); });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    for (const auto& stack : stacks) {
        EXPECT_FALSE(stack.empty());
    }
}

} // namespace
} // namespace Kestra
