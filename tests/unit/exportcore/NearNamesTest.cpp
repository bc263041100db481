// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/NearNames.h"
#include "ExportCore/Refusal.h"
#include <gmock/gmock.h>

using ExportCore::NearNames;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const std::vector<std::string> KNOWN{"mp4-h264-1080p", "mp4-h264-720p", "webm-vp9-720p", "mp3", "wav"};

TEST(NearNames, DistanceCountsSlips) {
    EXPECT_EQ(NearNames::distance("", ""), 0U);
    EXPECT_EQ(NearNames::distance("abc", "abc"), 0U);
    EXPECT_EQ(NearNames::distance("abc", ""), 3U);
    EXPECT_EQ(NearNames::distance("", "abc"), 3U);
    EXPECT_EQ(NearNames::distance("abc", "abd"), 1U);
    EXPECT_EQ(NearNames::distance("abc", "bc"), 1U);
    EXPECT_EQ(NearNames::distance("abc", "xabc"), 1U);
    EXPECT_EQ(NearNames::distance("abcd", "acbd"), 1U) << "neighbours swapped";
    EXPECT_EQ(NearNames::distance("kitten", "sitting"), 3U);
}

TEST(NearNames, ASlipFindsTheNameFirst) {
    EXPECT_EQ(NearNames::find("mp4-h264-702p", KNOWN).front(), "mp4-h264-720p");
    EXPECT_EQ(NearNames::find("MP4-H264-720P", KNOWN).front(), "mp4-h264-720p");
}

TEST(NearNames, APartFindsTheNamesThatHoldIt) {
    EXPECT_THAT(NearNames::find("vp9", KNOWN), ::testing::Contains("webm-vp9-720p"));
    EXPECT_THAT(NearNames::find("720p", KNOWN), ElementsAre("mp4-h264-720p", "webm-vp9-720p"));
}

TEST(NearNames, NothingIsNearToNonsense) {
    EXPECT_THAT(NearNames::find("qqqqqqqqqq", KNOWN), IsEmpty());
    EXPECT_THAT(NearNames::find("mp3", {}), IsEmpty());
    EXPECT_THAT(NearNames::find("", {"fx"}), IsEmpty()) << "no letter of it is meant";
    EXPECT_THAT(NearNames::find("b", {"web"}), IsEmpty());
    EXPECT_THAT(NearNames::find("m4", {"mp4"}), ElementsAre("mp4"));
}

TEST(NearNames, OfATagIsProposedWhereNoPresetIsNear) {
    const auto words = [](const std::string& name) {
        try {
            NearNames::refuseUnknownPreset(name, KNOWN, {"editing", "small-files"});
        } catch (const ExportCore::Refusal& refusal) {
            return std::string(refusal.what());
        }
    };
    EXPECT_EQ(words("edting"),
              "There is no preset \"edting\"; did you mean the tag editing? (presets --tag editing lists its presets)");
    EXPECT_EQ(words("editing"),
              "There is no preset \"editing\"; that is a tag: presets --tag editing lists its presets");
    EXPECT_EQ(words("EDITING"), "There is no preset \"EDITING\"; did you mean the tag editing?");
    EXPECT_EQ(words("mp4-h264-702p"), "There is no preset \"mp4-h264-702p\"; did you mean mp4-h264-720p or "
                                      "mp4-h264-1080p?");
    EXPECT_EQ(words("qqqqqqqqqq"), "There is no preset \"qqqqqqqqqq\"; presets lists those there are");
}

TEST(NearNames, NoMoreThanTheLimit) {
    EXPECT_EQ(NearNames::find("mp4-h264-", KNOWN, 1).size(), 1U);
}

} // namespace
