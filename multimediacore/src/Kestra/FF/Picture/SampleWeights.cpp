// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/SampleWeights.h"

#include "Kestra/FF/Picture/AlphaBlend.h"
#include "Kestra/FF/Picture/BlendRows.h"
#include <algorithm>
#include <climits>

extern "C" {
#include <libavutil/intfloat.h>
#include <libavutil/intreadwrite.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

/// How a sample lies in memory, and what it is worth: whole numbers as they are.
struct Byte {
    static float Load(const std::uint8_t* sample) { return *sample; }
    static void Store(std::uint8_t* sample, float value) { *sample = static_cast<std::uint8_t>(value + ROUNDING); }
};
struct Word {
    static float Load(const std::uint8_t* sample) { return AV_RL16(sample); }
    static void Store(std::uint8_t* sample, float value) { AV_WL16(sample, static_cast<unsigned>(value + ROUNDING)); }
};
struct SwappedWord {
    static float Load(const std::uint8_t* sample) { return AV_RB16(sample); }
    static void Store(std::uint8_t* sample, float value) { AV_WB16(sample, static_cast<unsigned>(value + ROUNDING)); }
};
struct Float {
    static float Load(const std::uint8_t* sample) { return av_int2float(AV_RL32(sample)); }
    static void Store(std::uint8_t* sample, float value) { AV_WL32(sample, av_float2int(value)); }
};
struct SwappedFloat {
    static float Load(const std::uint8_t* sample) { return av_int2float(AV_RB32(sample)); }
    static void Store(std::uint8_t* sample, float value) { AV_WB32(sample, av_float2int(value)); }
};

const AVPixFmtDescriptor& DescriptorOf(const AVFrame& frame) {
    return *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
}

bool IsFloat(const AVPixFmtDescriptor& format) {
    return (format.flags & AV_PIX_FMT_FLAG_FLOAT) != 0;
}

std::uint8_t* RowOf(const AVFrame& frame, const AVComponentDescriptor& component, int y) {
    return frame.data[component.plane] + component.offset +
           static_cast<std::ptrdiff_t>(y) * frame.linesize[component.plane];
}

float HighestOf(const AVPixFmtDescriptor& format) {
    return IsFloat(format) ? 1.0F : static_cast<float>((1U << format.comp[0].depth) - 1);
}

/// Calls `pass(sample layout)`.
template <class Pass>
auto WithLayout(const AVPixFmtDescriptor& format, const Pass& pass) {
    const bool swapped = (format.flags & AV_PIX_FMT_FLAG_BE) != 0;
    if (IsFloat(format))
        return swapped ? pass(SwappedFloat()) : pass(Float());
    if (format.comp[0].depth <= CHAR_BIT)
        return pass(Byte());
    return swapped ? pass(SwappedWord()) : pass(Word());
}

/// Calls `change(colour without its black, share of alpha)` for every sample of colour, which becomes the result.
template <class Layout, class Change>
void ForEachColour(AVFrame& frame, const Change& change) {
    const AVPixFmtDescriptor& format = DescriptorOf(frame);
    const int last = format.nb_components - 1;
    const float highest = HighestOf(format);
    for (int component = 0; component < last; ++component) {
        const bool full = IsFloat(format) || frame.color_range == AVCOL_RANGE_JPEG;
        const auto black = static_cast<float>(BlackOf(0, format, full));
        for (int y = 0; y < frame.height; ++y) {
            const AVComponentDescriptor& own = format.comp[component];
            std::uint8_t* sample = RowOf(frame, own, y);
            const std::uint8_t* alpha = RowOf(frame, format.comp[last], y);
            for (int x = 0; x < frame.width; ++x, sample += own.step, alpha += format.comp[last].step) {
                const float made = change(Layout::Load(sample) - black, Layout::Load(alpha) / highest) + black;
                Layout::Store(sample, IsFloat(format) ? made : std::clamp(made, 0.0F, highest));
            }
        }
    }
}

} // namespace

bool HasSampleWeights(AVPixelFormat format) noexcept {
    const AVPixFmtDescriptor* const descriptor = av_pix_fmt_desc_get(format);
    constexpr std::uint64_t others = AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_BITSTREAM | AV_PIX_FMT_FLAG_HWACCEL;
    if (!descriptor || !(descriptor->flags & AV_PIX_FMT_FLAG_ALPHA) || (descriptor->flags & others))
        return false;
    const bool isRgb = (descriptor->flags & AV_PIX_FMT_FLAG_RGB) != 0;
    const int depth = descriptor->comp[0].depth;
    const bool isWhole = depth == CHAR_BIT || depth == 2 * CHAR_BIT || IsFloat(*descriptor);
    return isWhole && depth == descriptor->comp[descriptor->nb_components - 1].depth &&
           (isRgb || descriptor->nb_components == 2);
}

bool IsAnySeenThrough(const AVFrame& frame) {
    const AVPixFmtDescriptor& format = DescriptorOf(frame);
    const AVComponentDescriptor& component = format.comp[format.nb_components - 1];
    return WithLayout(format, [&](auto layout) {
        for (int y = 0; y < frame.height; ++y) {
            const std::uint8_t* alpha = RowOf(frame, component, y);
            for (int x = 0; x < frame.width; ++x, alpha += component.step)
                if (decltype(layout)::Load(alpha) < HighestOf(format))
                    return true;
        }
        return false;
    });
}

void WeightSamples(AVFrame& frame) {
    WithLayout(DescriptorOf(frame), [&frame](auto layout) {
        ForEachColour<decltype(layout)>(frame, [](float colour, float alpha) { return colour * alpha; });
    });
}

void UnweightSamples(AVFrame& frame) {
    constexpr float NOTHING = 1.0F / 65536; // scaling overshoots: less than that is none
    WithLayout(DescriptorOf(frame), [&frame](auto layout) {
        ForEachColour<decltype(layout)>(
            frame, [](float colour, float alpha) { return alpha < NOTHING ? 0.0F : colour / std::min(alpha, 1.0F); });
    });
}

} // namespace Kestra::FF
