// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/AlphaSamples.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Picture/BlendRows.h"
#include <algorithm>
#include <cstdint>

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/intfloat.h>
#include <libavutil/intreadwrite.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

constexpr int DEEPEST = 16; // of whole numbers; floating point is made by way of it

bool IsBigEndian(const AVFrame& frame) {
    return (av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->flags & AV_PIX_FMT_FLAG_BE) != 0;
}

template <class Visit>
void VisitAlpha(AVFrame& frame, const Visit& visit) {
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    const AVComponentDescriptor& alpha = descriptor.comp[descriptor.nb_components - 1];
    for (int y = 0; y < frame.height; ++y) {
        std::uint8_t* sample =
            frame.data[alpha.plane] + alpha.offset + static_cast<std::ptrdiff_t>(y) * frame.linesize[alpha.plane];
        for (int x = 0; x < frame.width; ++x, sample += alpha.step)
            visit(sample);
    }
}

} // namespace

int AlphaDepthOf(const AVFrame& frame) {
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    return HasAlpha(static_cast<AVPixelFormat>(frame.format)) ? descriptor.comp[descriptor.nb_components - 1].depth : 0;
}

void WidenAlpha(AVFrame& frame, int depthBefore) {
    const int depth = AlphaDepthOf(frame);
    const int made = std::min(depth, DEEPEST);
    if (depthBefore == 0 || depthBefore >= made)
        return;
    const auto highest = static_cast<float>((1U << made) - 1);
    const float factor = highest / static_cast<float>(((1U << depthBefore) - 1) << (made - depthBefore));
    const auto widened = [highest, factor](int value) {
        return static_cast<std::uint16_t>(std::min(static_cast<float>(value) * factor + ROUNDING, highest));
    };
    const bool bigEndian = IsBigEndian(frame);
    if (depth > DEEPEST)
        VisitAlpha(frame, [bigEndian, factor](std::uint8_t* sample) {
            const float value = av_int2float(bigEndian ? AV_RB32(sample) : AV_RL32(sample));
            const std::uint32_t bits = av_float2int(std::min(value * factor, 1.0F));
            bigEndian ? AV_WB32(sample, bits) : AV_WL32(sample, bits);
        });
    else if (bigEndian)
        VisitAlpha(frame, [&widened](std::uint8_t* sample) { AV_WB16(sample, widened(AV_RB16(sample))); });
    else
        VisitAlpha(frame, [&widened](std::uint8_t* sample) { AV_WL16(sample, widened(AV_RL16(sample))); });
}

void MakeOpaque(AVFrame& frame) {
    const int depth = AlphaDepthOf(frame);
    const bool bigEndian = IsBigEndian(frame);
    const std::uint32_t highest = depth > DEEPEST ? av_float2int(1.0F) : (1U << depth) - 1;
    if (depth == 0)
        return;
    if (depth > DEEPEST)
        VisitAlpha(frame,
                   [=](std::uint8_t* sample) { bigEndian ? AV_WB32(sample, highest) : AV_WL32(sample, highest); });
    else if (depth > 8)
        VisitAlpha(frame,
                   [=](std::uint8_t* sample) { bigEndian ? AV_WB16(sample, highest) : AV_WL16(sample, highest); });
    else
        VisitAlpha(frame, [](std::uint8_t* sample) { *sample = UINT8_MAX; });
}

} // namespace Kestra::FF
