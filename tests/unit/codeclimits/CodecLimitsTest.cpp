// SPDX-License-Identifier: GPL-3.0-or-later
// The limits that are told, against the encoders themselves.
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/SampleInfo.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/opt.h>
}

using Kestra::ClientAPI::CodecLimits;
using Kestra::ClientAPI::QualityRange;
using Kestra::Conf::CodecID;

namespace {

struct Encoder {
    CodecID codec;
    const char* name;
};
constexpr Encoder AUDIO[] = {
    {CodecID::AAC, "aac"},
    {CodecID::Opus, "libopus"},
    {CodecID::MP3, "libmp3lame"},
    {CodecID::FLAC, "flac"},
    {CodecID::PCM_S16LE, "pcm_s16le"},
    {CodecID::PCM_S24LE, "pcm_s24le"},
    {CodecID::Vorbis, "libvorbis"},
    {CodecID::AC3, "ac3"},
    {CodecID::ALAC, "alac"},
};
constexpr Encoder VIDEO[] = {
    {CodecID::H264, "libx264"},     {CodecID::HEVC, "libx265"},     {CodecID::VP9, "libvpx-vp9"},
    {CodecID::VP8, "libvpx"},       {CodecID::AV1, "libaom-av1"},   {CodecID::MPEG4, "mpeg4"},
    {CodecID::MPEG2, "mpeg2video"}, {CodecID::ProRes, "prores_ks"}, {CodecID::FFV1, "ffv1"},
    {CodecID::MJPEG, "mjpeg"},      {CodecID::PNG, "png"},
};

struct FreeContext {
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};
using Context = std::unique_ptr<AVCodecContext, FreeContext>;

Context makeContext(const char* name) {
    const AVCodec* const codec = avcodec_find_encoder_by_name(name);
    if (!codec)
        return nullptr;
    Context context(avcodec_alloc_context3(codec));
    context->strict_std_compliance = FF_COMPLIANCE_UNOFFICIAL;
    return context;
}

Context makeAudio(const char* name, int rate, std::uint64_t speakers) {
    Context context = makeContext(name);
    context->sample_rate = rate;
    context->sample_fmt = context->codec->sample_fmts ? context->codec->sample_fmts[0] : AV_SAMPLE_FMT_S16;
    av_channel_layout_from_mask(&context->ch_layout, speakers);
    // One codec opens only with a bitrate that suits rate and channels.
    context->bit_rate =
        context->codec_id == AV_CODEC_ID_VORBIS ? std::int64_t{rate} * context->ch_layout.nb_channels : 64'000;
    return context;
}

bool opens(const Context& context) {
    return avcodec_open2(context.get(), nullptr, nullptr) >= 0;
}

bool takesRate(const char* name, int rate) {
    return opens(makeAudio(name, rate, AV_CH_LAYOUT_STEREO));
}

Context makeVideo(const char* name, int side, AVRational rate) {
    Context context = makeContext(name);
    context->width = context->height = side;
    context->time_base = av_inv_q(rate);
    context->framerate = rate;
    context->pix_fmt = context->codec->pix_fmts ? context->codec->pix_fmts[0] : AV_PIX_FMT_YUV420P;
    context->bit_rate = 200'000;
    return context;
}

class CodecLimitsTest : public ::testing::Test {
protected:
    CodecLimitsTest() { av_log_set_level(AV_LOG_QUIET); }
    ~CodecLimitsTest() override { av_log_set_level(AV_LOG_INFO); }
};

TEST_F(CodecLimitsTest, SampleRatesAreThoseThatTheEncodersOpenWith) {
    for (const Encoder& encoder : AUDIO) {
        const std::vector<int> told = CodecLimits::SampleRates(encoder.codec);
        EXPECT_TRUE(std::is_sorted(told.begin(), told.end())) << encoder.name;
        // Its encoder opens with lower rates too, and its streams are decoded at this one all the same.
        if (encoder.codec == CodecID::Opus) {
            EXPECT_EQ(told, std::vector<int>{48000});
            continue;
        }
        for (const int rate :
             {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000, 88200, 96000, 176400, 192000}) {
            const bool stands = std::find(told.begin(), told.end(), rate) != told.end();
            EXPECT_EQ(stands, takesRate(encoder.name, rate)) << encoder.name << " at " << rate;
        }
    }
    EXPECT_TRUE(CodecLimits::SampleRates(CodecID::H264).empty());
    EXPECT_TRUE(CodecLimits::SampleRates(CodecID::None).empty());
}

TEST_F(CodecLimitsTest, ChannelLayoutsAreThoseThatTheEncodersOpenWith) {
    const std::pair<std::uint32_t, std::uint64_t> layouts[] = {
        {Kestra::Conf::CHANNEL_LAYOUT_MONO, AV_CH_LAYOUT_MONO},
        {Kestra::Conf::CHANNEL_LAYOUT_STEREO, AV_CH_LAYOUT_STEREO},
        {Kestra::Conf::CHANNEL_LAYOUT_QUAD, AV_CH_LAYOUT_QUAD},
        {Kestra::Conf::CHANNEL_LAYOUT_5POINT0, AV_CH_LAYOUT_5POINT0_BACK},
        {Kestra::Conf::CHANNEL_LAYOUT_5POINT1, AV_CH_LAYOUT_5POINT1_BACK},
        {Kestra::Conf::CHANNEL_LAYOUT_7POINT1, AV_CH_LAYOUT_7POINT1}};
    for (const Encoder& encoder : AUDIO) {
        const std::vector<std::uint32_t> told = CodecLimits::ChannelLayouts(encoder.codec);
        for (const auto& [layout, speakers] : layouts) {
            const bool stands = std::find(told.begin(), told.end(), layout) != told.end();
            EXPECT_EQ(stands, opens(makeAudio(encoder.name, 48000, speakers))) << encoder.name << " " << layout;
        }
    }
    EXPECT_TRUE(CodecLimits::ChannelLayouts(CodecID::VP9).empty());
}

TEST_F(CodecLimitsTest, TheSmallestSideIsTheFirstThatTheEncodersOpenWith) {
    for (const Encoder& encoder : VIDEO) {
        const int smallest = CodecLimits::SmallestSide(encoder.codec);
        EXPECT_TRUE(opens(makeVideo(encoder.name, smallest, {25, 1}))) << encoder.name;
        if (smallest > 2) {
            EXPECT_FALSE(opens(makeVideo(encoder.name, smallest - 2, {25, 1}))) << encoder.name;
        }
    }
}

TEST_F(CodecLimitsTest, SidesOutsideAreThoseThatTheEncodersRefuse) {
    for (const Encoder& encoder : VIDEO) {
        // What opens may still not be written: 14 bits of a side in one, heights of a level in the other.
        if (encoder.codec == CodecID::VP8 || encoder.codec == CodecID::AV1)
            continue;
        for (const int side : {64, 4094, 4096, 8190, 8192, 12288, 16382, 16384}) {
            const Context wide = makeVideo(encoder.name, 64, {25, 1});
            wide->width = side;
            wide->strict_std_compliance = FF_COMPLIANCE_NORMAL;
            EXPECT_EQ(CodecLimits::TakesWidth(encoder.codec, side), opens(wide)) << encoder.name << " " << side;
        }
    }
    EXPECT_FALSE(CodecLimits::TakesWidth(CodecID::VP8, 16384));
    EXPECT_FALSE(CodecLimits::TakesHeight(CodecID::AV1, 8706));
    EXPECT_TRUE(CodecLimits::TakesWidth(CodecID::WebP, 16383));
    EXPECT_FALSE(CodecLimits::TakesHeight(CodecID::WebP, 16384));
    EXPECT_FALSE(CodecLimits::TakesWidth(CodecID::DNxHD, 254));
    EXPECT_TRUE(CodecLimits::TakesHeight(CodecID::DNxHD, 120));
}

TEST_F(CodecLimitsTest, FrameRatesOutsideAreThoseThatTheEncodersRefuse) {
    for (const CodecID codec : {CodecID::H264, CodecID::VP9, CodecID::MPEG4, CodecID::MPEG2, CodecID::ProRes})
        EXPECT_TRUE(CodecLimits::TakesFrameRate(codec, {30000, 1001}));
    EXPECT_FALSE(CodecLimits::TakesFrameRate(CodecID::H264, 0));
    EXPECT_FALSE(CodecLimits::TakesFrameRate(CodecID::MPEG4, {119881, 1000}));
    EXPECT_FALSE(opens(makeVideo("mpeg4", 64, {119881, 1000})));
    EXPECT_TRUE(CodecLimits::TakesFrameRate(CodecID::H264, {119881, 1000}));
    EXPECT_FALSE(CodecLimits::TakesFrameRate(CodecID::MPEG2, 31));
    EXPECT_FALSE(opens(makeVideo("mpeg2video", 64, {31, 1})));
    // By the periods that files tell and browsers heed.
    for (const boost::rational<long long> rate : {boost::rational<long long>(1, 16000), {60}, {90}, {1000, 11}})
        EXPECT_TRUE(CodecLimits::TakesFrameRate(CodecID::WebP, rate)) << rate;
    for (const boost::rational<long long> rate : {boost::rational<long long>(1, 17000), {91}, {120}})
        EXPECT_FALSE(CodecLimits::TakesFrameRate(CodecID::WebP, rate)) << rate;
}

TEST_F(CodecLimitsTest, QualitiesLieInsideTheEncodersOwnScales) {
    for (const Encoder& encoder : VIDEO) {
        const QualityRange range = CodecLimits::VideoQuality(encoder.codec);
        const Context context = makeVideo(encoder.name, 64, {25, 1});
        const AVOption* const option = av_opt_find(context->priv_data, "crf", nullptr, 0, 0);
        if (option && option->type == AV_OPT_TYPE_INT) {
            EXPECT_FALSE(range.fractions) << encoder.name;
            EXPECT_EQ(range.worst, static_cast<int>(option->max)) << encoder.name;
        }
        EXPECT_LE(range.best, range.worst);
        const bool hasNone =
            encoder.codec == CodecID::ProRes || encoder.codec == CodecID::FFV1 || encoder.codec == CodecID::PNG;
        EXPECT_EQ(range.worst == 0, hasNone) << encoder.name;
    }
}

TEST_F(CodecLimitsTest, AScaleHoldsWhatLiesBetweenItsEndsWhicheverIsBetter) {
    const QualityRange rising = CodecLimits::VideoQuality(CodecID::WebP),
                       falling = CodecLimits::VideoQuality(CodecID::H264);
    EXPECT_TRUE(rising.Exists() && falling.Exists());
    EXPECT_FALSE(CodecLimits::VideoQuality(CodecID::ProRes).Exists());
    for (const double quality : {1.0, 75.5, 100.0})
        EXPECT_TRUE(rising.Holds(quality)) << quality;
    for (const double quality : {0.5, 100.5})
        EXPECT_FALSE(rising.Holds(quality)) << quality;
    EXPECT_TRUE(falling.Holds(51));
    EXPECT_FALSE(falling.Holds(51.5));
    EXPECT_FALSE(falling.Holds(0.5));
}

TEST_F(CodecLimitsTest, TheStepsOfABitrateFollowTheSampleRate) {
    EXPECT_EQ(CodecLimits::AudioBitrateSteps(CodecID::MP3, 44100).back(), 320'000);
    EXPECT_EQ(CodecLimits::AudioBitrateSteps(CodecID::MP3, 22050).back(), 160'000);
    EXPECT_EQ(CodecLimits::AudioBitrateSteps(CodecID::MP3, 11025).back(), 64'000);
    EXPECT_EQ(CodecLimits::AudioBitrateSteps(CodecID::AC3, 48000).back(), 640'000);
    EXPECT_TRUE(CodecLimits::AudioBitrateSteps(CodecID::AAC, 48000).empty());
}

TEST_F(CodecLimitsTest, ABitrateCanBeAskedForWhereLossAndNoProfileDecides) {
    for (const CodecID codec : {CodecID::H264, CodecID::MJPEG, CodecID::AAC, CodecID::AC3})
        EXPECT_TRUE(CodecLimits::HasBitrate(codec));
    for (const CodecID codec : {CodecID::ProRes, CodecID::DNxHD, CodecID::FFV1, CodecID::FLAC, CodecID::PCM_S16LE,
                                CodecID::GIF, CodecID::PNG, CodecID::WebP, CodecID::ALAC, CodecID::None})
        EXPECT_FALSE(CodecLimits::HasBitrate(codec));
}

} // namespace
