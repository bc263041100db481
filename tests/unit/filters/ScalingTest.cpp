// SPDX-License-Identifier: GPL-3.0-or-later
// Where samples stand after scaling and conversion, whichever scaler does it.
#include "Kestra/FF/Picture/FrameConverter.h"
#include "Kestra/FF/Picture/PlanarScaler.h"
#include <cmath>
#include <gtest/gtest.h>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {
namespace {

const Conf::ColourInfo HD{AVCOL_PRI_BT709, AVCOL_TRC_BT709, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG};

const AVPixFmtDescriptor& Of(int format) {
    return *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(format));
}

bool IsChroma(const AVFrame& frame, int component) {
    return !(Of(frame.format).flags & AV_PIX_FMT_FLAG_RGB) && (component == 1 || component == 2);
}

std::uint8_t* SampleAt(const AVFrame& frame, int component, int x, int y) {
    const AVComponentDescriptor& place = Of(frame.format).comp[component];
    return frame.data[place.plane] + static_cast<std::ptrdiff_t>(y) * frame.linesize[place.plane] +
           static_cast<std::ptrdiff_t>(x) * place.step + place.offset;
}

/// In the steps of 8 bits.
double ValueAt(const AVFrame& frame, int component, int x, int y) {
    const std::uint8_t* const sample = SampleAt(frame, component, x, y);
    const int depth = Of(frame.format).comp[component].depth;
    return depth > 8 ? (sample[0] | sample[1] << 8) / static_cast<double>(1 << (depth - 8)) : sample[0];
}

void SetValue(AVFrame& frame, int component, int x, int y, double value) {
    std::uint8_t* const sample = SampleAt(frame, component, x, y);
    const int depth = Of(frame.format).comp[component].depth;
    const long code = std::lround(value * (1 << (depth - 8)));
    sample[0] = static_cast<std::uint8_t>(code);
    if (depth > 8)
        sample[1] = static_cast<std::uint8_t>(code >> 8);
}

struct Place {
    double x;
    double y;
};

/// Of a sample's middle, in pixels of a picture of 64x64.
Place PlaceOf(const AVFrame& frame, int component, int x, int y) {
    const bool chroma = IsChroma(frame, component);
    const int across = chroma ? 1 << Of(frame.format).log2_chroma_w : 1;
    const int down = chroma ? 1 << Of(frame.format).log2_chroma_h : 1;
    const bool centred = frame.chroma_location == AVCHROMA_LOC_CENTER;
    const bool top = frame.chroma_location == AVCHROMA_LOC_TOPLEFT;
    const double px = across == 1 ? x + 0.5 : across * x + (centred ? across / 2.0 : 0.5);
    const double py = down == 1 ? y + 0.5 : down * y + (top ? 0.5 : down / 2.0);
    return {px * 64 / frame.width, py * 64 / frame.height};
}

/// A slope of its own in each component. A quarter of a pixel makes 0.6.
double SlopeAt(int component, const Place& place) {
    switch (component) {
    case 0:
        return 40 + 2.4 * place.x;
    case 1:
        return 200 - 2.4 * place.x;
    default:
        return 50 + 2.4 * place.y;
    }
}

template <class Visit>
void VisitSamples(const AVFrame& frame, int border, Visit visit) {
    for (int component = 0; component < Of(frame.format).nb_components; ++component) {
        const bool chroma = IsChroma(frame, component);
        const int width = chroma ? AV_CEIL_RSHIFT(frame.width, Of(frame.format).log2_chroma_w) : frame.width;
        const int height = chroma ? AV_CEIL_RSHIFT(frame.height, Of(frame.format).log2_chroma_h) : frame.height;
        for (int y = border; y < height - border; ++y)
            for (int x = border; x < width - border; ++x)
                visit(component, x, y);
    }
}

FrameHandle Blank(AVPixelFormat format, int width, int height) {
    FrameHandle frame = FramePool().Get(format, width, height);
    frame->sample_aspect_ratio = {1, 1};
    frame->colorspace = Of(format).flags & AV_PIX_FMT_FLAG_RGB ? AVCOL_SPC_RGB : AVCOL_SPC_BT709;
    frame->color_primaries = AVCOL_PRI_BT709;
    frame->color_trc = AVCOL_TRC_BT709;
    frame->color_range = Of(format).flags & AV_PIX_FMT_FLAG_RGB ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    return frame;
}

FrameHandle Slopes(AVPixelFormat format, int width, int height, AVChromaLocation location = AVCHROMA_LOC_LEFT) {
    FrameHandle frame = Blank(format, width, height);
    frame->chroma_location = location;
    VisitSamples(*frame, 0, [&](int component, int x, int y) {
        SetValue(*frame, component, x, y, component == 3 ? 255 : SlopeAt(component, PlaceOf(*frame, component, x, y)));
    });
    return frame;
}

FrameHandle Noise(AVPixelFormat format, int width, int height) {
    FrameHandle frame = Blank(format, width, height);
    std::uint32_t state = 1;
    VisitSamples(*frame, 0, [&](int component, int x, int y) {
        state = state * 1664525U + 1013904223U;
        SetValue(*frame, component, x, y, 100 + (state >> 26));
    });
    return frame;
}

FrameHandle Convert(const AVFrame& frame, AVPixelFormat format, int width, int height,
                    int interpolation = SWS_BICUBIC) {
    FrameTarget target;
    target.width = width;
    target.height = height;
    target.format = format;
    target.source = {0, 0, frame.width, frame.height};
    target.place = {0, 0, width, height};
    target.interpolation = interpolation;
    return FrameConverter().Convert(frame, target);
}

void ExpectSlopes(const AVFrame& frame, const char* what) {
    double worst = 0;
    VisitSamples(frame, 6, [&](int component, int x, int y) {
        if (component == 3)
            return;
        const double expected = SlopeAt(component, PlaceOf(frame, component, x, y));
        worst = std::max(worst, std::abs(ValueAt(frame, component, x, y) - expected));
    });
    EXPECT_LT(worst, 1.05) << what; // rounding here and there
}

TEST(Scaling, LeavesLumaAndChromaInTheirPlaces) {
    const auto check = [](const FrameHandle& from, AVPixelFormat format, int width, int height, const char* what) {
        const FrameHandle made = Convert(*from, format, width, height);
        EXPECT_EQ(made->chroma_location, AVCHROMA_LOC_LEFT) << what;
        ExpectSlopes(*made, what);
    };
    check(Slopes(AV_PIX_FMT_YUV420P, 64, 64), AV_PIX_FMT_YUV420P, 128, 96, "larger");
    check(Slopes(AV_PIX_FMT_YUV420P, 192, 160), AV_PIX_FMT_YUV420P, 64, 64, "smaller");
    check(Slopes(AV_PIX_FMT_YUV420P10, 192, 160), AV_PIX_FMT_YUV420P10, 64, 64, "smaller, ten bits");
    check(Slopes(AV_PIX_FMT_YUV422P10, 64, 64), AV_PIX_FMT_YUV420P, 64, 64, "ten bits of 4:2:2");
    check(Slopes(AV_PIX_FMT_YUV420P, 64, 64), AV_PIX_FMT_YUV444P, 64, 64, "to 4:4:4");
    check(Slopes(AV_PIX_FMT_YUV444P, 64, 64), AV_PIX_FMT_YUV420P, 64, 64, "of 4:4:4");
    check(Slopes(AV_PIX_FMT_NV12, 128, 128), AV_PIX_FMT_YUV420P, 64, 64, "two planes");
    check(Slopes(AV_PIX_FMT_YUVA420P, 128, 128), AV_PIX_FMT_YUVA420P, 64, 64, "alpha");
    check(Slopes(AV_PIX_FMT_YUV444P, 129, 127), AV_PIX_FMT_YUV420P, 64, 64, "odd sides");
    check(Slopes(AV_PIX_FMT_YUV420P, 128, 128, AVCHROMA_LOC_CENTER), AV_PIX_FMT_YUV420P, 64, 64, "centred");
    check(Slopes(AV_PIX_FMT_YUV420P10, 128, 128, AVCHROMA_LOC_TOPLEFT), AV_PIX_FMT_YUV420P, 64, 64, "above");
    check(Slopes(AV_PIX_FMT_YUVA420P, 128, 128, AVCHROMA_LOC_CENTER), AV_PIX_FMT_YUVA420P, 64, 64, "centred, alpha");
}

// Colours that lie on a slope in RGB do so in YUV as well.
TEST(Scaling, OfRgbPutsChromaBesideTheLeftPixel) {
    const FrameHandle through =
        Convert(*Convert(*Slopes(AV_PIX_FMT_YUV444P, 64, 64), AV_PIX_FMT_GBRP, 64, 64), AV_PIX_FMT_YUV444P, 64, 64);
    const FrameHandle shared =
        Convert(*Convert(*Slopes(AV_PIX_FMT_YUV444P, 64, 64), AV_PIX_FMT_GBRP, 64, 64), AV_PIX_FMT_YUV420P, 64, 64);
    double worst = 0;
    for (int y = 8; y < 24; ++y)
        for (int x = 8; x < 24; ++x)
            worst = std::max(
                worst, std::abs(ValueAt(*shared, 1, x, y) -
                                (ValueAt(*through, 1, 2 * x, 2 * y) + ValueAt(*through, 1, 2 * x, 2 * y + 1)) / 2));
    EXPECT_LT(worst, 1.05);
}

bool Takes(const AVFrame& from, AVPixelFormat format, int width, int height, const PlanarScaler::Job& job) {
    const FrameHandle to = Blank(format, width, height);
    return PlanarScaler().Scale(from, *to, job);
}

TEST(PlanarScaler, TakesTheCasesInWhichItIsBetterAndNoOthers) {
    const PlanarScaler::Job same{HD, HD, SWS_BICUBIC};
    const FrameHandle eight = Noise(AV_PIX_FMT_YUV420P, 64, 64);
    const FrameHandle ten = Noise(AV_PIX_FMT_YUV422P10, 64, 64);
    EXPECT_TRUE(Takes(*eight, AV_PIX_FMT_YUV420P, 32, 32, same));
    EXPECT_TRUE(Takes(*ten, AV_PIX_FMT_YUV420P, 64, 64, same));
    EXPECT_TRUE(Takes(*ten, AV_PIX_FMT_YUV420P, 32, 32, same));
    EXPECT_TRUE(Takes(*eight, AV_PIX_FMT_YUV422P10, 64, 64, same));
    EXPECT_FALSE(Takes(*ten, AV_PIX_FMT_YUV422P10, 32, 32, same)) << "libswscale is more exact";
    EXPECT_FALSE(Takes(*eight, AV_PIX_FMT_NV12, 32, 32, same));
    EXPECT_FALSE(Takes(*eight, AV_PIX_FMT_GBRP, 32, 32, same));
    EXPECT_FALSE(Takes(*eight, AV_PIX_FMT_YUV420P, 33, 32, same)) << "half a sample of chroma";
    EXPECT_FALSE(Takes(*Noise(AV_PIX_FMT_YUVA420P, 64, 64), AV_PIX_FMT_YUVA420P, 32, 32, same));
    EXPECT_FALSE(Takes(*eight, AV_PIX_FMT_YUV420P, 32, 32, {HD, HD, SWS_POINT}));
    Conf::ColourInfo other = HD;
    other.matrix = AVCOL_SPC_SMPTE170M;
    EXPECT_FALSE(Takes(*eight, AV_PIX_FMT_YUV420P, 32, 32, {HD, other, SWS_BICUBIC}));
    const FrameHandle within = MakeView(*eight, {2, 0, 32, 32});
    EXPECT_FALSE(Takes(*within, AV_PIX_FMT_YUV420P, 16, 16, same)) << "rows that begin anywhere";
}

// Rows that begin anywhere are the other scaler's.
TEST(PlanarScaler, MakesWhatTheOtherScalerMakes) {
    const auto check = [](AVPixelFormat from, int width, int height, AVPixelFormat to, int interpolation, bool full) {
        const FrameHandle wide = Noise(from, width + 2, height);
        const FrameHandle within = MakeView(*wide, {2, 0, width, height});
        const FrameHandle aligned = Blank(from, width, height);
        VisitSamples(*aligned, 0, [&](int component, int x, int y) {
            SetValue(*aligned, component, x, y, ValueAt(*within, component, x, y));
        });
        aligned->color_range = within->color_range = full ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
        FrameTarget target;
        target.width = 96;
        target.height = 64;
        target.format = to;
        target.source = {0, 0, width, height};
        target.place = {0, 0, 96, 64};
        target.colour = HD;
        target.interpolation = interpolation;
        const FrameHandle own = FrameConverter().Convert(*aligned, target);
        const FrameHandle other = FrameConverter().Convert(*within, target);
        double worst = 0;
        VisitSamples(*own, 4, [&](int component, int x, int y) {
            worst = std::max(worst, std::abs(ValueAt(*own, component, x, y) - ValueAt(*other, component, x, y)));
        });
        EXPECT_LE(worst, 2) << av_get_pix_fmt_name(from) << ' ' << av_get_pix_fmt_name(to) << ' ' << interpolation;
    };
    check(AV_PIX_FMT_YUV420P, 192, 128, AV_PIX_FMT_YUV420P, SWS_BICUBIC, false);
    check(AV_PIX_FMT_YUV420P, 64, 48, AV_PIX_FMT_YUV420P, SWS_LANCZOS, false);
    check(AV_PIX_FMT_YUV420P10, 96, 64, AV_PIX_FMT_YUV420P, SWS_BICUBIC, false);
    check(AV_PIX_FMT_YUV422P, 96, 64, AV_PIX_FMT_YUV420P, SWS_BICUBIC, true);
    check(AV_PIX_FMT_YUV422P12, 128, 96, AV_PIX_FMT_YUV420P, SWS_BICUBIC, true);
}

} // namespace
} // namespace Kestra::FF
