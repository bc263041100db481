// SPDX-License-Identifier: GPL-3.0-or-later
// Pixels of a layer that become one, as when it is scaled: what is transparent has no say in their colour.
#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/FF/Picture/FrameConverter.h"
#include "Kestra/Proc/IFilterFactory.h"
#include <cmath>
#include <gtest/gtest.h>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra {
namespace {

constexpr int WIDTH = 96;
constexpr int HEIGHT = 64;
constexpr int EDGE = 33;

/// White up to the edge, of a colour beyond it that is not to be seen.
FF::FrameHandle half(AVPixelFormat format) {
    FF::FrameHandle picture = FF::FramePool().Get(format, WIDTH, HEIGHT);
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(format);
    const bool rgb = (descriptor.flags & AV_PIX_FMT_FLAG_RGB) != 0;
    picture->sample_aspect_ratio = {1, 1};
    const bool full = rgb || descriptor.nb_components == 2; // grey with alpha is always so
    picture->color_range = full ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    picture->colorspace = rgb ? AVCOL_SPC_RGB : AVCOL_SPC_BT709;
    const int depth = descriptor.comp[0].depth;
    const int alpha = descriptor.nb_components - 1;
    for (int component = 0; component <= alpha; ++component) {
        const AVComponentDescriptor& one = descriptor.comp[component];
        const bool chroma = !rgb && component != 0 && component != alpha;
        const int shiftX = chroma ? descriptor.log2_chroma_w : 0;
        const int shiftY = chroma ? descriptor.log2_chroma_h : 0;
        const std::int64_t highest = (std::int64_t{1} << depth) - 1;
        const std::int64_t white = full || component == alpha ? highest : (chroma ? 128LL : 235LL) << (depth - 8);
        const std::int64_t unseen = component == alpha ? 0 : (chroma ? 40LL : 16LL) << (depth - 8);
        for (int y = 0; y < AV_CEIL_RSHIFT(HEIGHT, shiftY); ++y)
            for (int x = 0; x < AV_CEIL_RSHIFT(WIDTH, shiftX); ++x) {
                std::uint8_t* const sample =
                    picture->data[one.plane] + y * picture->linesize[one.plane] + x * one.step + one.offset;
                const std::int64_t value = (x << shiftX) < EDGE ? white : unseen;
                const auto word = static_cast<std::uint16_t>(value);
                if (depth > 16)
                    *reinterpret_cast<float*>(sample) = static_cast<float>(value) / static_cast<float>(highest);
                else if (depth > 8)
                    *reinterpret_cast<std::uint16_t*>(sample) =
                        (descriptor.flags & AV_PIX_FMT_FLAG_BE) != 0 ? __builtin_bswap16(word) : word;
                else
                    *sample = static_cast<std::uint8_t>(value);
            }
    }
    return picture;
}

FF::FrameHandle converted(const AVFrame& picture, AVPixelFormat format, int width) {
    FF::FrameTarget target;
    target.width = target.place.width = width;
    target.height = target.place.height = HEIGHT;
    target.source = {0, 0, picture.width, HEIGHT};
    target.format = format;
    target.colour.matrix = AVCOL_SPC_BT709;
    target.colour.range = AVCOL_RANGE_MPEG;
    target.interpolation = SWS_BILINEAR; // others overshoot at every edge
    return FF::FrameConverter().Convert(picture, target);
}

/// White of the whole frame in the opaque sibling.
boost::intrusive_ptr<Proc::IDataVideo> white(AVPixelFormat format, int width) {
    FF::FrameHandle picture = FF::FramePool().Get(format, width, HEIGHT);
    const int depth = av_pix_fmt_desc_get(format)->comp[0].depth;
    for (int plane = 0; plane < 3; ++plane)
        for (int y = 0; y < (plane ? HEIGHT / 2 : HEIGHT); ++y)
            for (int x = 0; x < (plane ? width / 2 : width); ++x)
                if (depth > 8)
                    reinterpret_cast<std::uint16_t*>(picture->data[plane] + y * picture->linesize[plane])[x] =
                        static_cast<std::uint16_t>((plane ? 128 : 235) << (depth - 8));
                else
                    picture->data[plane][y * picture->linesize[plane] + x] = plane ? 128 : 235;
    return new FF::DataVideoFF(std::move(picture), 0, 0);
}

/// The greatest difference from white, in 8-bit steps, of a white layer over white.
double stain(const AVFrame& layer, AVPixelFormat opaque) {
    const auto description = Conf::IFormatCodecVideo::Create();
    description->InitByFrameAspect(static_cast<std::uint32_t>(layer.width), HEIGHT, 0, 0);
    description->SetPixelFormat(FF::FromAv(opaque));
    const auto blender = Core::CoreManager::Instance().GetFilterFactory().CreateFrameBlender(description);
    const auto clean = white(opaque, layer.width);
    const auto laid = blender->Over(clean, new FF::DataVideoFF(FF::MakeFrameReference(layer), 0, 0));
    const AVFrame& result = FF::FrameOf(*laid);
    const AVFrame& expected = FF::FrameOf(*clean);
    const int depth = av_pix_fmt_desc_get(opaque)->comp[0].depth;
    double worst = 0;
    for (int plane = 0; plane < 3; ++plane)
        for (int y = 0; y < (plane ? HEIGHT / 2 : HEIGHT); ++y)
            for (int x = 0; x < (plane ? layer.width / 2 : layer.width); ++x) {
                const auto at = [&](const AVFrame& frame) {
                    const std::uint8_t* const row = frame.data[plane] + y * frame.linesize[plane];
                    return depth > 8 ? reinterpret_cast<const std::uint16_t*>(row)[x] / 4.0 : double(row[x]);
                };
                worst = std::max(worst, std::abs(at(result) - at(expected)));
            }
    return worst;
}

} // namespace

TEST(AlphaEdges, KeepTheColourOfWhatIsSeenWhenScaled) {
    for (const AVPixelFormat source : {AV_PIX_FMT_BGRA, AV_PIX_FMT_YUVA420P, AV_PIX_FMT_YUVA444P10, AV_PIX_FMT_GBRAP,
                                       AV_PIX_FMT_RGBA64LE, AV_PIX_FMT_RGBA64BE, AV_PIX_FMT_YA8, AV_PIX_FMT_YA16LE,
                                       AV_PIX_FMT_YA16BE, AV_PIX_FMT_GBRAPF32LE, AV_PIX_FMT_GBRAPF32BE})
        for (const int width : {48, 80, 144})
            for (const AVPixelFormat made : {AV_PIX_FMT_YUVA420P, AV_PIX_FMT_YUVA420P10}) {
                const FF::FrameHandle layer = converted(*half(source), made, width);
                EXPECT_LE(stain(*layer, made == AV_PIX_FMT_YUVA420P ? AV_PIX_FMT_YUV420P : AV_PIX_FMT_YUV420P10), 3)
                    << av_get_pix_fmt_name(source) << " " << av_get_pix_fmt_name(made) << " " << width;
            }
}

TEST(AlphaEdges, KeepItInTheFormatThatTheyHave) {
    for (const AVPixelFormat format : {AV_PIX_FMT_RGBA64LE, AV_PIX_FMT_RGBA64BE, AV_PIX_FMT_YA8, AV_PIX_FMT_YA16BE,
                                       AV_PIX_FMT_GBRAPF32LE, AV_PIX_FMT_GBRAPF32BE}) {
        const FF::FrameHandle layer = converted(*half(format), format, 48);
        EXPECT_EQ(layer->format, format);
        EXPECT_LE(stain(*converted(*layer, AV_PIX_FMT_YUVA420P, 48), AV_PIX_FMT_YUV420P), 3)
            << av_get_pix_fmt_name(format);
    }
}

TEST(AlphaEdges, KeepItWherePixelsComeToShareTheirChroma) {
    for (const AVPixelFormat source : {AV_PIX_FMT_BGRA, AV_PIX_FMT_YUVA444P10, AV_PIX_FMT_GBRAP})
        EXPECT_LE(stain(*converted(*half(source), AV_PIX_FMT_YUVA420P, WIDTH), AV_PIX_FMT_YUV420P), 3)
            << av_get_pix_fmt_name(source);
}

TEST(AlphaEdges, LeaveUnseenGrayAsItIsWhereNothingIsScaledForItHasNoChromaToShare) {
    for (const AVPixelFormat source : {AV_PIX_FMT_YA16LE, AV_PIX_FMT_YA16BE}) {
        FF::FrameTarget target;
        target.width = target.place.width = target.source.width = WIDTH;
        target.height = target.place.height = target.source.height = HEIGHT;
        target.format = AV_PIX_FMT_YUVA420P16LE;
        target.colour.range = AVCOL_RANGE_JPEG;
        const FF::FrameHandle made = FF::FrameConverter().Convert(*half(source), target);
        const auto* const luma = reinterpret_cast<const std::uint16_t*>(made->data[0]);
        EXPECT_EQ(luma[EDGE - 1], 0xFFFF);
        EXPECT_EQ(luma[EDGE], 16 << 8) << av_get_pix_fmt_name(source);
        EXPECT_EQ(reinterpret_cast<const std::uint16_t*>(made->data[3])[EDGE], 0);
    }
}

TEST(AlphaEdges, LeaveFramesThatAreOpaqueThroughoutAsTheyWere) {
    FF::FrameHandle picture = half(AV_PIX_FMT_YUVA420P);
    for (int y = 0; y < HEIGHT; ++y)
        std::fill_n(picture->data[3] + y * picture->linesize[3], WIDTH, std::uint8_t{255});
    FF::FrameHandle opaque = FF::MakeFrameReference(*picture);
    opaque->format = AV_PIX_FMT_YUV420P;
    const FF::FrameHandle scaled = converted(*picture, AV_PIX_FMT_YUVA420P, 48);
    const FF::FrameHandle expected = converted(*opaque, AV_PIX_FMT_YUV420P, 48);
    for (int y = 0; y < HEIGHT; ++y)
        ASSERT_TRUE(std::equal(scaled->data[0] + y * scaled->linesize[0],
                               scaled->data[0] + y * scaled->linesize[0] + 48,
                               expected->data[0] + y * expected->linesize[0]))
            << y;
}

} // namespace Kestra
