// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/NumberedName.h"
#include <gtest/gtest.h>

using Kestra::Conf::NumberedName;

namespace {

NumberedName parsed(const char* pattern) {
    const auto name = NumberedName::Parse(pattern);
    EXPECT_TRUE(name) << pattern;
    return name.value_or(NumberedName());
}

TEST(NumberedName, FillsUpWithNoughtsAndGrowsBeyond) {
    const NumberedName name = parsed("shot_%05d.png");
    EXPECT_EQ(name.NameOf(0), "shot_00000.png");
    EXPECT_EQ(name.NameOf(99'999), "shot_99999.png");
    EXPECT_EQ(name.NameOf(100'000), "shot_100000.png");
    EXPECT_EQ(parsed("%d").NameOf(7), "7");
    EXPECT_EQ(parsed("a%3d").NameOf(7), "a007") << "blanks in names help nobody";
}

TEST(NumberedName, FindsEachNumberInItsOwnName) {
    const NumberedName name = parsed("shot_%05d.png");
    for (const std::int64_t number : {0LL, 1LL, 99'999LL, 100'000LL, 123'456'789'012LL})
        EXPECT_EQ(name.NumberOf(name.NameOf(number)), number);
    for (const char* other :
         {"shot_0000.png", "shot_000000.png", "shot_.png", "shot_-0001.png", "shot_+0001.png", "shot_0001a.png",
          "shot_ 0001.png", "shot_00001.jpg", "hot_00001.png", ".png", "", "shot_99999999999999999999.png"})
        EXPECT_FALSE(name.NumberOf(other)) << other;
}

TEST(NumberedName, TakesEveryOtherPercentSignForItself) {
    for (const char* pattern : {"100%_%04d.png", "%%04d.png", "%04d%.png", "%x%04d%s%", "a%0%04d"}) {
        const NumberedName name = parsed(pattern);
        EXPECT_EQ(name.digits, 4) << pattern;
        EXPECT_EQ(name.ToPattern(), pattern);
        EXPECT_EQ(name.NumberOf(name.NameOf(12)), 12) << pattern;
    }
    EXPECT_EQ(parsed("100%_%04d.png").NameOf(3), "100%_0003.png");
}

TEST(NumberedName, HasOnePlaceForTheNumber) {
    for (const auto& [pattern, places] : {std::pair("", 0),
                                          {"a.png", 0},
                                          {"50%", 0},
                                          {"%s", 0},
                                          {"%0x5d", 0},
                                          {"%d%d", 2},
                                          {"%02d_%03d_%d", 3},
                                          {"%5d", 1}}) {
        EXPECT_EQ(NumberedName::CountPlaces(pattern), places) << pattern;
        EXPECT_EQ(NumberedName::Parse(pattern).has_value(), places == 1) << pattern;
    }
    EXPECT_TRUE(NumberedName::Parse("%018d"));
    EXPECT_FALSE(NumberedName::Parse("%019d")) << "no number has so many digits";
    EXPECT_FALSE(NumberedName::Parse("%99999999999999999999d"));
}

} // namespace
