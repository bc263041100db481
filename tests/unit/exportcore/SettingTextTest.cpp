// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SettingText.h"
#include <gtest/gtest.h>
#include <limits>

using ExportCore::SettingText;

namespace {

constexpr std::int64_t LARGEST = std::numeric_limits<std::int64_t>::max();

TEST(SettingText, WholeNumbersAreDigitsAlone) {
    EXPECT_EQ(SettingText::wholeNumber("0"), 0);
    EXPECT_EQ(SettingText::wholeNumber("0720"), 720);
    EXPECT_EQ(SettingText::wholeNumber("9223372036854775807"), LARGEST);
    for (const char* const text : {"", "-1", "+1", " 1", "1 ", "1.0", "0x10", "1e3", "one", "1\n"})
        EXPECT_FALSE(SettingText::wholeNumber(text)) << text;
}

TEST(SettingText, ANumberTooLargeIsTheLargest) {
    EXPECT_EQ(SettingText::wholeNumber("9223372036854775808"), LARGEST);
    EXPECT_EQ(SettingText::amount("9223372036854775807M"), LARGEST);
}

TEST(SettingText, AmountsHaveUnits) {
    EXPECT_EQ(SettingText::amount("2500000"), 2'500'000);
    EXPECT_EQ(SettingText::amount("2500k"), 2'500'000);
    EXPECT_EQ(SettingText::amount("2500K"), 2'500'000);
    EXPECT_EQ(SettingText::amount("2.5M"), 2'500'000);
    EXPECT_EQ(SettingText::amount("44.1k"), 44'100);
    EXPECT_EQ(SettingText::amount("0.000001M"), 1);
}

TEST(SettingText, AnAmountHasNoPartsOfABit) {
    for (const char* const text :
         {"", "k", "M", ".5M", "2.M", "2.5", "1.2345k", "1.2.3M", "-1k", "1kk", "1 k", "1m", "1,5M"})
        EXPECT_FALSE(SettingText::amount(text)) << text;
}

TEST(SettingText, DecimalsHaveAPointWhateverTheLocale) {
    EXPECT_EQ(SettingText::decimal("23"), 23.0);
    EXPECT_EQ(SettingText::decimal("23.5"), 23.5);
    EXPECT_EQ(SettingText::decimal("0.25"), 0.25);
    for (const char* const text : {"", ".5", "5.", "-1", "+1", "1,5", "nan", "inf", "1e2", "0x1p3", "1.5x", " 1"})
        EXPECT_FALSE(SettingText::decimal(text)) << text;
}

TEST(SettingText, RatiosAreReduced) {
    EXPECT_EQ(SettingText::ratio("25"), boost::rational<long long>(25));
    EXPECT_EQ(SettingText::ratio("30000/1001"), boost::rational<long long>(30000, 1001));
    EXPECT_EQ(SettingText::ratio("50/2"), boost::rational<long long>(25));
    EXPECT_EQ(SettingText::ratio("0"), boost::rational<long long>(0));
    for (const char* const text :
         {"", "/", "25/", "/2", "25/0", "25/-1", "1/2/3", "29.97", "2147483648", "1/2147483648"})
        EXPECT_FALSE(SettingText::ratio(text)) << text;
}

TEST(SettingText, FrameRatesHaveTheirUsualNames) {
    using Rate = boost::rational<long long>;
    EXPECT_EQ(SettingText::frameRate("25"), Rate(25));
    EXPECT_EQ(SettingText::frameRate("30000/1001"), Rate(30000, 1001));
    EXPECT_EQ(SettingText::frameRate("29.97"), Rate(30000, 1001));
    EXPECT_EQ(SettingText::frameRate("29.970"), Rate(30000, 1001));
    EXPECT_EQ(SettingText::frameRate("23.976"), Rate(24000, 1001));
    EXPECT_EQ(SettingText::frameRate("23.98"), Rate(24000, 1001));
    EXPECT_EQ(SettingText::frameRate("59.94"), Rate(60000, 1001));
    EXPECT_EQ(SettingText::frameRate("119.88"), Rate(120000, 1001));
    EXPECT_EQ(SettingText::frameRate("12.5"), Rate(25, 2));
    EXPECT_EQ(SettingText::frameRate("25.0"), Rate(25));
    EXPECT_EQ(SettingText::frameRate("29.9"), Rate(299, 10)) << "abbreviates nothing";
    EXPECT_EQ(SettingText::frameRate("29.98"), Rate(1499, 50));
    EXPECT_EQ(SettingText::frameRate("film"), Rate(24));
    EXPECT_EQ(SettingText::frameRate("ntsc"), Rate(30000, 1001));
    for (const char* const text : {"", ".", ".5", "25.", "1.2.3", "-25", "25fps", "9999999999.5", "1.0000001", "NTSC "})
        EXPECT_FALSE(SettingText::frameRate(text)) << text;
}

} // namespace
