// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/ChangedPart.h"
#include "Kestra/FF/Av/Error.h"
#include <array>
#include <cstring>
#include <gtest/gtest.h>

using namespace Kestra::FF;

namespace {

FrameHandle Grey(AVPixelFormat format, int width = 31, int height = 23) {
    FrameHandle frame = MakeFrame();
    frame->format = format;
    frame->width = width;
    frame->height = height;
    Check(av_frame_get_buffer(frame.get(), 0), Kestra::Proc::TranscodingError::OutOfMemory, "a frame");
    for (int plane = 0; plane < 4 && frame->data[plane]; ++plane)
        std::memset(frame->data[plane], 100, frame->buf[plane] ? frame->buf[plane]->size : 0);
    return frame;
}

std::string Text(const FrameRect& part) {
    return std::to_string(part.width) + 'x' + std::to_string(part.height) + '+' + std::to_string(part.x) + '+' +
           std::to_string(part.y);
}

/// What of a grey picture differs once the sample of that plane does.
std::string After(AVPixelFormat format, std::initializer_list<std::array<int, 3>> samples) {
    const FrameHandle before = Grey(format), now = Grey(format);
    for (const auto& [plane, x, y] : samples)
        now->data[plane][y * now->linesize[plane] + x] = 101;
    return Text(ChangedPart(*before, *now));
}

TEST(ChangedPart, OfEqualPicturesIsEmptyWhateverStandsBesideThem) {
    for (const AVPixelFormat format : {AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUVA420P, AV_PIX_FMT_BGRA}) {
        EXPECT_EQ(After(format, {}), "0x0+0+0");
        const FrameHandle before = Grey(format), now = Grey(format);
        now->data[0][31 * (format == AV_PIX_FMT_BGRA ? 4 : 1)] = 7; // behind a row
        EXPECT_EQ(Text(ChangedPart(*before, *now)), "0x0+0+0");
    }
}

TEST(ChangedPart, BeginsOnEvenPixelsAndEndsAtTheEdge) {
    EXPECT_EQ(After(AV_PIX_FMT_YUV420P, {{0, 0, 0}}), "2x2+0+0");
    EXPECT_EQ(After(AV_PIX_FMT_YUV420P, {{0, 7, 5}}), "2x2+6+4");
    EXPECT_EQ(After(AV_PIX_FMT_YUV420P, {{0, 30, 22}}), "1x1+30+22");
    EXPECT_EQ(After(AV_PIX_FMT_BGRA, {{0, 4 * 7 + 3, 5}}), "2x2+6+4");
    EXPECT_EQ(After(AV_PIX_FMT_BGRA, {{0, 4 * 30, 22}}), "1x1+30+22");
}

TEST(ChangedPart, HoldsWhatChangesInAnyPlane) {
    EXPECT_EQ(After(AV_PIX_FMT_YUV420P, {{1, 3, 4}}), "2x2+6+8");
    EXPECT_EQ(After(AV_PIX_FMT_YUV420P, {{2, 15, 11}}), "1x1+30+22");
    EXPECT_EQ(After(AV_PIX_FMT_YUVA420P, {{3, 9, 1}}), "2x2+8+0");
    EXPECT_EQ(After(AV_PIX_FMT_YUVA420P, {{0, 4, 20}, {2, 1, 1}, {3, 21, 9}}), "20x20+2+2");
}

TEST(ChangedPart, SpansWhatChangesInSeveralRows) {
    EXPECT_EQ(After(AV_PIX_FMT_YUV420P, {{0, 10, 3}, {0, 4, 9}, {0, 20, 6}}), "18x8+4+2");
    EXPECT_EQ(After(AV_PIX_FMT_YUV420P, {{0, 0, 0}, {0, 30, 22}}), "31x23+0+0");
    EXPECT_EQ(After(AV_PIX_FMT_YUV420P, {{0, 30, 0}, {0, 0, 1}}), "31x2+0+0");
}

} // namespace
