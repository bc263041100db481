// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/TrackOptions.h"
#include <gtest/gtest.h>

using ExportCore::TrackOptions;
using Sound = ExportCore::TrackOptions::Sound;

TEST(TrackOptions, ReadWhichSoundIsWanted) {
    TrackOptions options;
    ASSERT_TRUE(options.chooseSound("2"));
    EXPECT_EQ(options.sound, Sound::Chosen);
    EXPECT_EQ(options.choice.sound, 2);
    ASSERT_TRUE(options.chooseSound("de-AT"));
    EXPECT_FALSE(options.choice.sound);
    EXPECT_EQ(options.choice.soundLanguage, "deu");
    ASSERT_TRUE(options.chooseSound("all"));
    EXPECT_EQ(options.sound, Sound::All);
    EXPECT_FALSE(options.choice.IsMade());
    ASSERT_TRUE(options.chooseSound("none"));
    EXPECT_EQ(options.sound, Sound::None);
}

TEST(TrackOptions, TakeNoNonsense) {
    for (const char* nonsense : {"", "-1", "1.5", "99999999999999999999", "german", "und", "xx", " 1", "ä"}) {
        TrackOptions options;
        EXPECT_FALSE(options.chooseSound(nonsense)) << nonsense;
        EXPECT_EQ(options.sound, Sound::Main) << nonsense;
    }
}
