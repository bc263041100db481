// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/FrameBlend.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Picture/BlendRows.h"
#include <cmath>
#include <optional>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

using Floats = std::vector<float>;

const AVPixFmtDescriptor& DescriptorOf(const AVFrame& frame) {
    return *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
}

bool IsFloat(const AVFrame& frame) {
    return (DescriptorOf(frame).flags & AV_PIX_FMT_FLAG_FLOAT) != 0;
}

/// How the samples of one plane lie, those of chroma subsampled.
struct PlaneShape {
    PlaneShape(const AVFrame& frame, int plane) {
        const AVPixFmtDescriptor& descriptor = DescriptorOf(frame);
        if ((plane == 1 || plane == 2) && !(descriptor.flags & AV_PIX_FMT_FLAG_RGB)) {
            shiftX = descriptor.log2_chroma_w;
            shiftY = descriptor.log2_chroma_h;
        }
        width = AV_CEIL_RSHIFT(frame.width, shiftX);
        height = AV_CEIL_RSHIFT(frame.height, shiftY);
    }

    bool IsShared() const { return shiftX + shiftY > 0; }

    int shiftX = 0;
    int shiftY = 0;
    int width;
    int height;
};

constexpr int COLOUR_PLANES = 3;

template <class Sample>
void MixOpaque(const AVFrame& from, const AVFrame& to, std::uint16_t weight, AVFrame& result) {
    for (int plane = 0; plane < COLOUR_PLANES; ++plane) {
        const PlaneShape shape(result, plane);
        for (int y = 0; y < shape.height; ++y)
            MixRow(RowOf<Sample>(from, plane, y), RowOf<Sample>(to, plane, y), RowOf<Sample>(result, plane, y),
                   shape.width, weight);
    }
}

template <class Sample>
void LayOverOpaque(const AVFrame& bottom, const AVFrame& top, AVFrame& result) {
    const int depth = DescriptorOf(top).comp[3].depth;
    const PlaneShape luma(result, 0);
    const PlaneShape chroma(result, 1);
    const auto lay = [&](int plane, int y, const Sample* alpha, int width) {
        OverRow(RowOf<Sample>(bottom, plane, y), RowOf<Sample>(top, plane, y), alpha, RowOf<Sample>(result, plane, y),
                width, depth);
    };
    for (int y = 0; y < luma.height; ++y)
        for (int plane = 0; plane < (chroma.IsShared() ? 1 : COLOUR_PLANES); ++plane)
            lay(plane, y, RowOf<Sample>(top, 3, y), luma.width);
    if (!chroma.IsShared())
        return;
    std::vector<Sample> shared(static_cast<std::size_t>(chroma.width));
    for (int y = 0; y < chroma.height; ++y) {
        ShareAlpha(top, y, chroma.shiftX, chroma.shiftY, shared);
        lay(1, y, shared.data(), chroma.width);
        lay(2, y, shared.data(), chroma.width);
    }
}

/// One of two frames that are blended. What is not there has the other's colours, of which none is seen.
struct Layer {
    Layer(const AVFrame* frame, const AVFrame* other)
        : frame(frame ? *frame : *other)
        , opacity(frame ? 1.0F : 0.0F)
        , alpha(frame && CarriesAlpha(*frame)) {}

    const AVFrame& frame;
    float opacity; ///< where it has no alpha
    bool alpha;
};

/// Everything that MixOpaque and LayOverOpaque do not do, in floating point. A row of pixels gets two numbers each: how
/// much there is of `to`, and of both. Samples of chroma get the sums of those that share them.
template <class Sample>
class WeightedBlend {
public:
    /// Without a weight `to` lies over `from`.
    WeightedBlend(const Layer& from, const Layer& to, std::optional<float> weight, AVFrame& result)
        : from(from)
        , to(to)
        , weight(weight)
        , result(result)
        , luma(result, 0)
        , chroma(result, 1)
        , highest(IsFloat(result) ? 1.0F : static_cast<float>((1U << DescriptorOf(result).comp[0].depth) - 1))
        , part(static_cast<std::size_t>(luma.width))
        , whole(part.size())
        , sharedPart(chroma.IsShared() ? static_cast<std::size_t>(chroma.width) : 0)
        , sharedWhole(sharedPart.size()) {}

    void Run() {
        for (int y = 0; y < chroma.height; ++y)
            BlendGroup(y);
    }

private:
    /// The rows that share row `row` of chroma.
    void BlendGroup(int row) {
        std::fill(sharedPart.begin(), sharedPart.end(), 0.0F);
        std::fill(sharedWhole.begin(), sharedWhole.end(), 0.0F);
        const int last = std::min((row + 1) << chroma.shiftY, luma.height);
        for (int y = row << chroma.shiftY; y < last; ++y) {
            Weigh(y);
            if (CarriesAlpha(result))
                StoreAlpha(y);
            if (chroma.IsShared()) {
                Share(part, sharedPart);
                Share(whole, sharedWhole);
            }
            Divide(part, whole);
            for (int plane = 0; plane < (chroma.IsShared() ? 1 : COLOUR_PLANES); ++plane)
                BlendColour(plane, y, part);
        }
        if (!chroma.IsShared())
            return;
        Divide(sharedPart, sharedWhole);
        BlendColour(1, row, sharedPart);
        BlendColour(2, row, sharedPart);
    }

    void Weigh(int y) {
        LoadAlpha(to, y, part);
        LoadAlpha(from, y, whole);
        if (weight)
            WeighMix(*weight);
        else
            WeighLayer();
    }

    void WeighMix(float share) {
        for (std::size_t x = 0; x < part.size(); ++x) {
            part[x] *= share;
            whole[x] = part[x] + whole[x] * (1 - share);
        }
    }

    void WeighLayer() {
        for (std::size_t x = 0; x < part.size(); ++x)
            whole[x] = part[x] + whole[x] * (1 - part[x]);
    }

    void LoadAlpha(const Layer& layer, int y, Floats& row) const {
        if (!layer.alpha)
            return std::fill(row.begin(), row.end(), layer.opacity);
        const Sample* const samples = RowOf<Sample>(layer.frame, 3, y);
        float* const alpha = row.data();
        const float scale = 1 / highest;
        const std::size_t width = row.size();
        for (std::size_t x = 0; x < width; ++x)
            alpha[x] = static_cast<float>(samples[x]) * scale;
    }

    // Samples of 8 bits may lie anywhere, for all that compilers know: what loops read is named before them.
    void StoreAlpha(int y) {
        Sample* const samples = RowOf<Sample>(result, 3, y);
        const float* const alpha = whole.data();
        const float scale = highest;
        const std::size_t width = whole.size();
        for (std::size_t x = 0; x < width; ++x)
            samples[x] = Rounded(alpha[x] * scale);
    }

    void Share(const Floats& row, Floats& shared) const {
        std::size_t x = 0;
        if (chroma.shiftX == 1) // the usual case, in a loop that becomes vectors
            for (; x < row.size() / 2 * 2; x += 2)
                shared[x / 2] += row[x] + row[x + 1];
        for (; x < row.size(); ++x)
            shared[x >> chroma.shiftX] += row[x];
    }

    /// What is transparent keeps the colours of `from`.
    static void Divide(Floats& parts, const Floats& wholes) {
        constexpr float TINY = 1e-12F;
        for (std::size_t x = 0; x < parts.size(); ++x)
            parts[x] /= std::max(wholes[x], TINY);
    }

    void BlendColour(int plane, int y, const Floats& weights) {
        const Sample* const below = RowOf<Sample>(from.frame, plane, y);
        const Sample* const above = RowOf<Sample>(to.frame, plane, y);
        Sample* const samples = RowOf<Sample>(result, plane, y);
        const float* const weightOf = weights.data();
        const std::size_t width = weights.size();
        for (std::size_t x = 0; x < width; ++x) {
            const auto start = static_cast<float>(below[x]);
            samples[x] = Rounded(start + (static_cast<float>(above[x]) - start) * weightOf[x]);
        }
    }

    static Sample Rounded(float value) {
        if constexpr (std::is_floating_point_v<Sample>)
            return value;
        else
            return static_cast<Sample>(static_cast<int>(value + ROUNDING));
    }

    const Layer from;
    const Layer to;
    const std::optional<float> weight;
    AVFrame& result;
    const PlaneShape luma;
    const PlaneShape chroma;
    const float highest;
    Floats part;
    Floats whole;
    Floats sharedPart;
    Floats sharedWhole;
};

void Blend(const AVFrame* from, const AVFrame* to, std::optional<float> weight, AVFrame& result) {
    const Layer below(from, to);
    const Layer above(to, from);
    if (IsFloat(result))
        WeightedBlend<float>(below, above, weight, result).Run();
    else if (DescriptorOf(result).comp[0].depth > 8)
        WeightedBlend<std::uint16_t>(below, above, weight, result).Run();
    else
        WeightedBlend<std::uint8_t>(below, above, weight, result).Run();
}

} // namespace

bool CarriesAlpha(const AVFrame& frame) noexcept {
    return HasAlpha(static_cast<AVPixelFormat>(frame.format));
}

bool MixHasAlpha(const AVFrame* from, const AVFrame* to) noexcept {
    return !from || !to || CarriesAlpha(*from) || CarriesAlpha(*to);
}

void MixFrames(const AVFrame* from, const AVFrame* to, double weight, AVFrame& result) {
    if (MixHasAlpha(from, to) || IsFloat(result))
        return Blend(from, to, static_cast<float>(weight), result);
    const auto parts = static_cast<std::uint16_t>(std::clamp<long>(std::lround(weight * WHOLE), 1, WHOLE - 1));
    if (DescriptorOf(result).comp[0].depth > 8)
        MixOpaque<std::uint16_t>(*from, *to, parts, result);
    else
        MixOpaque<std::uint8_t>(*from, *to, parts, result);
}

void LayOver(const AVFrame& bottom, const AVFrame& top, AVFrame& result) {
    if (CarriesAlpha(bottom) || IsFloat(result))
        return Blend(&bottom, &top, std::nullopt, result);
    if (DescriptorOf(result).comp[0].depth > 8)
        LayOverOpaque<std::uint16_t>(bottom, top, result);
    else
        LayOverOpaque<std::uint8_t>(bottom, top, result);
}

} // namespace Kestra::FF
