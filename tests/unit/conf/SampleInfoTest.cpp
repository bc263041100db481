// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/SampleInfo.h"
#include <gtest/gtest.h>

using namespace Kestra::Conf;
using Strategy = SampleInfo::MergeStrategy;

TEST(SampleInfo, AFreshOneIsOpenThroughout) {
    const SampleInfo info;
    EXPECT_EQ(info.GetFormatRecord()->format, SAMPLE_FORMAT_UNKNOWN);
    EXPECT_EQ(info.GetLayoutRecord()->layout, 0u);
    EXPECT_EQ(info.GetRate(), -1);
}

TEST(SampleInfo, FillingTakesOnlyWhatIsOpen) {
    SampleInfo info;
    info.Init(SAMPLE_FORMAT_S16, -1, CHANNEL_LAYOUT_UNKNOWN);
    SampleInfo source;
    source.Init(SAMPLE_FORMAT_FLTP, 44100, CHANNEL_LAYOUT_5POINT1);
    info.MergeWith(source, Strategy::FillOpen);
    EXPECT_EQ(info.GetFormatRecord()->format, SAMPLE_FORMAT_S16);
    EXPECT_EQ(info.GetRate(), 44100);
    EXPECT_EQ(info.GetLayoutRecord()->layout, std::uint32_t{CHANNEL_LAYOUT_5POINT1});
}

TEST(SampleInfo, FillingIsStrategyOne) {
    EXPECT_EQ(static_cast<int>(Strategy::FillOpen), 1);
}

TEST(SampleInfo, ARateOfZeroIsOpenToo) {
    SampleInfo info;
    info.SetRate(0);
    SampleInfo source;
    source.Init(-1, 48000, 0);
    info.MergeWith(source, Strategy::FillOpen);
    EXPECT_EQ(info.GetRate(), 48000);
}

TEST(SampleInfo, ReplacingTakesWhatTheOtherKnowsAndKeepsTheRest) {
    SampleInfo info;
    info.Init(SAMPLE_FORMAT_S16, 48000, CHANNEL_LAYOUT_STEREO);
    SampleInfo other;
    other.Init(SAMPLE_FORMAT_FLT, -1, CHANNEL_LAYOUT_UNKNOWN);
    info.MergeWith(other, Strategy::Replace);
    EXPECT_EQ(info.GetFormatRecord()->format, SAMPLE_FORMAT_FLT);
    EXPECT_EQ(info.GetRate(), 48000);
    EXPECT_EQ(info.GetLayoutRecord()->layout, std::uint32_t{CHANNEL_LAYOUT_STEREO});
}

TEST(SampleFmtRecord, KnowsSizeAndPlanes) {
    EXPECT_EQ(SampleFmtRecord::Find(SAMPLE_FORMAT_S16)->bytesPerSample, 2);
    EXPECT_TRUE(SampleFmtRecord::Find(SAMPLE_FORMAT_FLTP)->planar);
    EXPECT_FALSE(SampleFmtRecord::Find(SAMPLE_FORMAT_DBL)->planar);
    EXPECT_STREQ(SampleFmtRecord::Find(SAMPLE_FORMAT_DBLP)->name, "dblp");
    EXPECT_EQ(SampleFmtRecord::Find(99)->format, SAMPLE_FORMAT_UNKNOWN);
}

TEST(LayoutRecord, CountsOneChannelPerBit) {
    for (const std::uint32_t layout : {0x4u, 0x3u, 0xBu, 0x7u, 0x33u, 0x37u, 0x3Fu, 0x60Fu, 0x63Fu}) {
        const LayoutRecord* const record = LayoutRecord::Find(layout);
        EXPECT_EQ(record->layout, layout);
        EXPECT_EQ(record->channels, __builtin_popcount(layout)) << record->name;
    }
}

TEST(LayoutRecord, EverySetOfSpeakersHasARecord) {
    const LayoutRecord* const record = LayoutRecord::Find(0x10D);
    EXPECT_EQ(record->layout, 0x10Du);
    EXPECT_EQ(record->channels, 4);
    EXPECT_STREQ(record->name, "4 channels (FL+FC+LFE+BC)");
    EXPECT_EQ(LayoutRecord::Find(0x10D), record);
    // Bit 28 is nobody's.
    EXPECT_EQ(LayoutRecord::Find(0x10000000)->layout, 0u);
}

TEST(LayoutRecord, ChannelsWithoutSpeakersAreCounted) {
    const LayoutRecord* const record = LayoutRecord::Find(DiscreteLayout(16));
    EXPECT_EQ(record->channels, 16);
    EXPECT_STREQ(record->name, "16 channels");
    EXPECT_TRUE(IsDiscreteLayout(record->layout));
    EXPECT_EQ(SpeakersOf(record->layout), 0u);
    EXPECT_EQ(DiscreteLayout(0), 0u);
    EXPECT_EQ(DiscreteLayout(65536), 0u);
    EXPECT_EQ(LayoutRecord::Find(CHANNEL_LAYOUT_DISCRETE)->layout, 0u);
}

TEST(LayoutRecord, SpeakersBeyondBit31ComeBack) {
    EXPECT_EQ(LayoutOfSpeakers(0x3F), 0x3Fu);
    const std::uint64_t wide = 0x1F80003FFFFu; // 22.2
    EXPECT_EQ(SpeakersOf(LayoutOfSpeakers(wide)), wide);
    EXPECT_STREQ(LayoutRecord::Find(LayoutOfSpeakers(wide))->name, "22.2");
    EXPECT_EQ(LayoutOfSpeakers(std::uint64_t{1} << 41), 0u);
    EXPECT_EQ(LayoutOfSpeakers(std::uint64_t{1} << 18), 0u);
}
