// SPDX-License-Identifier: GPL-3.0-or-later
// The engine's tables of formats against the library's: each holds what the other does.
#include "Kestra/FF/Av/Convert.h"
#include <gtest/gtest.h>
#include <set>

extern "C" {
#include <libavutil/pixdesc.h>
}

using namespace Kestra;
using Conf::PixelFormatRecord;
using Conf::PixelKind;

namespace {

PixelKind KindOf(const AVPixFmtDescriptor& descriptor) {
    if (descriptor.flags & AV_PIX_FMT_FLAG_HWACCEL)
        return PixelKind::Hardware;
    if (descriptor.flags & AV_PIX_FMT_FLAG_BAYER)
        return PixelKind::Bayer;
    if (descriptor.flags & AV_PIX_FMT_FLAG_PAL)
        return PixelKind::Palette;
    if (descriptor.flags & AV_PIX_FMT_FLAG_RGB)
        return PixelKind::Rgb;
    if (std::string(descriptor.name).rfind("xyz", 0) == 0)
        return PixelKind::Xyz;
    return descriptor.nb_components <= 2 ? PixelKind::Gray : PixelKind::Yuv;
}

int BitsOf(const AVPixFmtDescriptor& descriptor) {
    int bits = 0;
    for (int component = 0; component < descriptor.nb_components; ++component)
        bits = std::max(bits, descriptor.comp[component].depth);
    // What one pixel of a mosaic is missing is counted as if it were there.
    return descriptor.flags & AV_PIX_FMT_FLAG_BAYER ? descriptor.comp[0].depth * 4 : bits;
}

void ExpectDescribed(const PixelFormatRecord& record, const AVPixFmtDescriptor& descriptor) {
    EXPECT_EQ(record.kind, KindOf(descriptor)) << record.name;
    EXPECT_EQ(record.bits, BitsOf(descriptor)) << record.name;
    EXPECT_EQ(record.chromaShiftX, descriptor.log2_chroma_w) << record.name;
    EXPECT_EQ(record.chromaShiftY, descriptor.log2_chroma_h) << record.name;
    EXPECT_EQ(record.alpha, (descriptor.flags & AV_PIX_FMT_FLAG_ALPHA) != 0) << record.name;
    EXPECT_EQ(record.fullRange, std::string(record.name).rfind("yuvj", 0) == 0) << record.name;
}

} // namespace

TEST(PixelFormats, EveryOneOfTheLibraryStandsInTheTable) {
    int seen = 0;
    for (const AVPixFmtDescriptor* known = nullptr; (known = av_pix_fmt_desc_next(known)) != nullptr; ++seen) {
        const AVPixelFormat av = av_pix_fmt_desc_get_id(known);
        const Conf::PixelFormat engine = FF::FromAv(av);
        const PixelFormatRecord* const record = PixelFormatRecord::Find(engine);
        ASSERT_NE(record, nullptr) << known->name << " is missing";
        EXPECT_STREQ(record->name, known->name);
        EXPECT_EQ(FF::ToAv(engine), av) << known->name;
        ExpectDescribed(*record, *known);
    }
    EXPECT_GT(seen, 200);
}

TEST(PixelFormats, EveryOneOfTheTableIsOneOfTheLibrary) {
    std::set<int> numbers;
    for (const PixelFormatRecord& record : PixelFormatRecord::All()) {
        EXPECT_NE(av_get_pix_fmt(record.name), AV_PIX_FMT_NONE) << record.name;
        EXPECT_EQ(FF::FromAv(FF::ToAv(record.Format())), record.Format()) << record.name;
        EXPECT_TRUE(numbers.insert(record.number).second) << record.number << " stands twice";
    }
}

TEST(PixelFormats, WhatIsNoFormatBecomesNone) {
    EXPECT_EQ(FF::ToAv(Conf::PixelFormat::Unknown), AV_PIX_FMT_NONE);
    EXPECT_EQ(FF::ToAv(Conf::PixelFormat::Other), AV_PIX_FMT_NONE);
    EXPECT_EQ(FF::ToAv(static_cast<Conf::PixelFormat>(20)), AV_PIX_FMT_NONE);
    EXPECT_EQ(FF::FromAv(AV_PIX_FMT_NONE), Conf::PixelFormat::Unknown);
    EXPECT_EQ(FF::FromAv(static_cast<AVPixelFormat>(100000)), Conf::PixelFormat::Other);
}

TEST(SampleFormats, EveryOneOfTheLibraryHasARecordOfItsName) {
    for (int number = 0; number < AV_SAMPLE_FMT_NB; ++number) {
        const auto av = static_cast<AVSampleFormat>(number);
        const Conf::SampleFormats engine = FF::FromAv(av);
        const Conf::SampleFmtRecord& record = *Conf::SampleFmtRecord::Find(engine);
        EXPECT_STREQ(record.name, av_get_sample_fmt_name(av));
        EXPECT_EQ(record.bytesPerSample, av_get_bytes_per_sample(av)) << record.name;
        EXPECT_EQ(record.planar, av_sample_fmt_is_planar(av) != 0) << record.name;
        EXPECT_EQ(FF::ToAv(engine), av) << record.name;
    }
}

TEST(ChannelLayouts, EveryStandardOneOfTheLibraryKeepsItsSpeakersAndName) {
    void* place = nullptr;
    int seen = 0;
    for (; const AVChannelLayout* const known = av_channel_layout_standard(&place); ++seen) {
        char name[64];
        av_channel_layout_describe(known, name, sizeof name);
        const std::uint32_t engine = FF::FromAv(*known);
        const Conf::LayoutRecord& record = *Conf::LayoutRecord::Find(engine);
        EXPECT_STREQ(record.name, name);
        EXPECT_EQ(record.channels, known->nb_channels) << name;
        const AVChannelLayout back = FF::ToAvLayout(engine);
        EXPECT_EQ(av_channel_layout_compare(&back, known), 0) << name;
    }
    EXPECT_GT(seen, 25);
}

TEST(ChannelLayouts, EverySpeakerHasItsPlaceAndName) {
    for (int channel = 0; channel <= AV_CHAN_BOTTOM_FRONT_RIGHT; ++channel) {
        char name[32];
        av_channel_name(name, sizeof name, static_cast<AVChannel>(channel));
        if (std::string(name).rfind("USR", 0) == 0)
            continue;
        const std::uint64_t mask = std::uint64_t{1} << channel | (channel == 2 ? 0x8U : 0x4U);
        AVChannelLayout layout = {};
        ASSERT_EQ(av_channel_layout_from_mask(&layout, mask), 0);
        const std::uint32_t engine = FF::FromAv(layout);
        EXPECT_EQ(Conf::SpeakersOf(engine), mask) << name;
        EXPECT_NE(std::string(Conf::LayoutRecord::Find(engine)->name).find(name), std::string::npos) << name;
    }
}

TEST(ChannelLayouts, ChannelsWithoutSpeakersAreNotTakenForStereo) {
    for (int channels = 3; channels <= 64; ++channels) {
        AVChannelLayout layout = {};
        layout.order = AV_CHANNEL_ORDER_UNSPEC;
        layout.nb_channels = channels;
        const AVChannelLayout back = FF::ToAvLayout(FF::FromAv(layout));
        EXPECT_EQ(back.order, AV_CHANNEL_ORDER_UNSPEC);
        EXPECT_EQ(back.nb_channels, channels);
    }
    AVChannelLayout ambisonic = {};
    ASSERT_EQ(av_channel_layout_from_string(&ambisonic, "ambisonic 1"), 0);
    EXPECT_EQ(FF::FromAv(ambisonic), Conf::DiscreteLayout(4));
    av_channel_layout_uninit(&ambisonic);
}
