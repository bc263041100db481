// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures without alpha that get some: nothing of them is let through.
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/FramePool.h"
#include "Kestra/FF/Picture/FrameConverter.h"
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

extern "C" {
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

namespace Kestra::FF {
namespace {

using Conf::ColourInfo;

const ColourInfo BT601{6, 6, 6, AVCOL_RANGE_MPEG};
const ColourInfo BT709{1, 1, 1, AVCOL_RANGE_MPEG};
const ColourInfo PQ{9, 16, 9, AVCOL_RANGE_MPEG};
const ColourInfo HLG{9, 18, 9, AVCOL_RANGE_MPEG};
const ColourInfo UNTAGGED;

std::vector<AVPixelFormat> formatsWithAlpha() {
    std::vector<AVPixelFormat> formats;
    for (const AVPixFmtDescriptor* it = nullptr; (it = av_pix_fmt_desc_next(it)) != nullptr;) {
        const AVPixelFormat format = av_pix_fmt_desc_get_id(it);
        if ((it->flags & AV_PIX_FMT_FLAG_ALPHA) && !(it->flags & AV_PIX_FMT_FLAG_PAL) && sws_isSupportedOutput(format))
            formats.push_back(format);
    }
    return formats;
}

FrameHandle grey(AVPixelFormat format, const ColourInfo& colour, int width, int height) {
    FrameHandle picture = FramePool().Get(format, width, height);
    for (int plane = 0; plane < AV_NUM_DATA_POINTERS && picture->buf[plane]; ++plane)
        std::memset(picture->buf[plane]->data, 1, picture->buf[plane]->size);
    picture->sample_aspect_ratio = {1, 1};
    SetColour(*picture, colour);
    if (av_pix_fmt_desc_get(format)->flags & AV_PIX_FMT_FLAG_RGB) {
        picture->colorspace = AVCOL_SPC_RGB;
        picture->color_range = AVCOL_RANGE_JPEG;
    }
    return picture;
}

FrameHandle converted(const AVFrame& picture, AVPixelFormat format, const ColourInfo& colour, int width, int height) {
    FrameTarget target;
    target.width = target.place.width = width;
    target.height = target.place.height = height;
    target.source = {0, 0, picture.width, picture.height};
    target.format = format;
    target.colour = colour;
    return FrameConverter().Convert(picture, target);
}

/// How many pixels of a picture let something through.
int leaksOf(const AVFrame& picture) {
    const auto format = static_cast<AVPixelFormat>(picture.format);
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(format);
    const int alpha = descriptor.nb_components - 1;
    constexpr std::uint32_t ONE = 0x3F800000; // in floating point
    const int depth = descriptor.comp[alpha].depth;
    const std::uint32_t highest = depth > 16 ? ONE : (1U << depth) - 1;
    const std::uint8_t* planes[] = {picture.data[0], picture.data[1], picture.data[2], picture.data[3]};
    std::vector<std::uint32_t> row(static_cast<std::size_t>(picture.width));
    int leaks = 0;
    for (int y = 0; y < picture.height; ++y) {
        av_read_image_line2(row.data(), planes, picture.linesize, &descriptor, 0, y, alpha, picture.width, 0, 4);
        for (const std::uint32_t sample : row)
            leaks += sample != highest ? 1 : 0;
    }
    return leaks;
}

void expectOpaque(const std::vector<AVPixelFormat>& sources, const ColourInfo& before,
                  const std::vector<AVPixelFormat>& formats, const ColourInfo& after, int width) {
    for (const AVPixelFormat own : sources)
        for (const AVPixelFormat format : formats) {
            const FrameHandle result = converted(*grey(own, before, 64, 32), format, after, width, 32);
            ASSERT_EQ(result->format, format);
            EXPECT_EQ(leaksOf(*result), 0)
                << av_get_pix_fmt_name(own) << " in " << av_get_pix_fmt_name(format) << ", " << width << " pixels wide";
        }
}

/// Of each depth and arrangement.
const std::vector<AVPixelFormat> SOURCES{AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUV422P10, AV_PIX_FMT_RGB24};
const std::vector<AVPixelFormat> TARGETS{AV_PIX_FMT_YUVA420P, AV_PIX_FMT_YUVA422P10, AV_PIX_FMT_YUVA444P16,
                                         AV_PIX_FMT_GBRAP,    AV_PIX_FMT_RGBA,       AV_PIX_FMT_RGBA64BE};

TEST(OpaquePictures, StaySoInEveryFormatWithAlpha) {
    ASSERT_GT(formatsWithAlpha().size(), 20U);
    const std::vector<AVPixelFormat> sources{AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUV422P10, AV_PIX_FMT_NV12,
                                             AV_PIX_FMT_P010,    AV_PIX_FMT_RGB24,     AV_PIX_FMT_GBRP12,
                                             AV_PIX_FMT_GRAY8,   AV_PIX_FMT_YUVJ420P};
    for (const int width : {64, 38})
        expectOpaque(sources, BT709, formatsWithAlpha(), BT709, width);
}

TEST(OpaquePictures, StaySoInAnotherColour) {
    expectOpaque(SOURCES, BT601, TARGETS, BT709, 64);
    expectOpaque(SOURCES, UNTAGGED, TARGETS, BT709, 38);
}

TEST(OpaquePictures, StaySoInAnotherDynamicRange) {
    expectOpaque(SOURCES, PQ, TARGETS, BT709, 64);
    expectOpaque({AV_PIX_FMT_YUV420P10}, HLG, TARGETS, BT709, 38);
    expectOpaque(SOURCES, BT709, TARGETS, PQ, 64);
    expectOpaque({AV_PIX_FMT_YUV420P10}, PQ, TARGETS, HLG, 64);
}

} // namespace
} // namespace Kestra::FF
