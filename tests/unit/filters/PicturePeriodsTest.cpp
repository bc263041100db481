// Which period of a frame rate shows a picture first.
#include "Kestra/Proc/Filters/PicturePeriods.h"
#include "Kestra/Base/Time.h"
#include <gtest/gtest.h>

namespace Kestra::Proc {
namespace {

using Rate = boost::rational<long long>;

const Rate RATE = 50; // periods of 20 ms

std::int64_t at(double milliseconds) {
    return static_cast<std::int64_t>(milliseconds * TICKS_PER_MILLISECOND);
}

TEST(FramePeriods, BeginWithTheFirstWhoseMiddleIsNotBeforeThePicture) {
    EXPECT_EQ(FirstPeriodOf(at(0), RATE), 0);
    EXPECT_EQ(FirstPeriodOf(at(9.9), RATE), 0);
    EXPECT_EQ(FirstPeriodOf(at(10), RATE), 0);
    EXPECT_EQ(FirstPeriodOf(at(10.1), RATE), 1);
    EXPECT_EQ(FirstPeriodOf(at(40), RATE), 2);
    EXPECT_EQ(FirstPeriodOf(at(-15), RATE), -1);
}

TEST(FramePeriods, AgreeWithTheMiddlesAtRatesThatDivideNothing) {
    const Rate odd(7919, 313);
    for (std::int64_t index = 0; index < 2000; ++index) {
        EXPECT_EQ(FirstPeriodOf(MiddleOfPeriod(index, odd), odd), index);
        EXPECT_EQ(FirstPeriodOf(MiddleOfPeriod(index, odd) + 1, odd), index + 1);
    }
}

TEST(FramePeriods, FollowOnForPicturesThatComeALittleEarlyOrLate) {
    EXPECT_EQ(FirstPeriodAfter(4, at(100), RATE), 5);
    EXPECT_EQ(FirstPeriodAfter(4, at(86), RATE), 5);
    EXPECT_EQ(FirstPeriodAfter(4, at(114), RATE), 5);
}

TEST(FramePeriods, AreTakenByTheMiddlesForPicturesThatComeTooEarlyOrTooLate) {
    EXPECT_EQ(FirstPeriodAfter(4, at(84), RATE), 4) << "replaces the one before";
    EXPECT_EQ(FirstPeriodAfter(4, at(116), RATE), 6);
    EXPECT_EQ(FirstPeriodAfter(4, at(300), RATE), 15);
}

TEST(FramePeriods, NeverRunBackwards) {
    EXPECT_EQ(FirstPeriodAfter(4, at(20), RATE), 4);
}

} // namespace
} // namespace Kestra::Proc
