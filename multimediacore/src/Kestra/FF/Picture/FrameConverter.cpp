// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/FrameConverter.h"

#include "Kestra/Conf/BlendFormats.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include "Kestra/FF/Picture/AlphaBlend.h"
#include "Kestra/FF/Picture/AlphaSamples.h"
#include "Kestra/FF/Picture/BlendRows.h"
#include "Kestra/FF/Picture/ChromaPlace.h"
#include "Kestra/FF/Picture/EncoderInput.h"
#include "Kestra/FF/Picture/Premultiply.h"
#include <algorithm>
#include <string>
#include <tuple>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Conf::ColourInfo;
using Proc::TranscodingError;

namespace {

// The colour by which the pixels are to be read: guessed where the frame does not say.
ColourInfo EffectiveColour(const AVFrame& frame) {
    const auto format = static_cast<AVPixelFormat>(frame.format);
    const bool full = frame.color_range == AVCOL_RANGE_JPEG || IsFullRangeFormat(format);
    ColourInfo colour = CompleteColour(ColourOf(frame), frame.width, frame.height, format, full);
    if (IsRgb(format))
        colour.range = AVCOL_RANGE_JPEG;
    return colour;
}

/// How many rows of pixels share one of chroma, as a power of two.
int ChromaRowsOf(const AVFrame& frame) {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    return descriptor ? descriptor->log2_chroma_h : 0;
}

/// Whether pixels that have chroma of their own come to share it.
bool LosesChroma(const AVFrame& from, const AVFrame& to) {
    const AVPixFmtDescriptor& before = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(from.format));
    const AVPixFmtDescriptor& after = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(to.format));
    const bool isGray = before.nb_components < 3;
    return !isGray && (before.log2_chroma_w < after.log2_chroma_w || before.log2_chroma_h < after.log2_chroma_h);
}

bool IsWhole(const FrameRect& part, int width, int height) {
    return part == FrameRect{0, 0, width, height};
}

bool SameColour(const ColourInfo& a, const ColourInfo& b) {
    return MatrixClass(a.matrix) == MatrixClass(b.matrix) && a.range == b.range;
}

/// What the scaler reads and writes in the full range alone, whatever it is told: gray of 16 bits with alpha.
bool IsFullInScaler(AVPixelFormat format) {
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(format);
    return descriptor.nb_components == 2 && descriptor.comp[0].depth > 8;
}

int ResolveRange(int tagged, AVPixelFormat from, AVPixelFormat to, int wanted) {
    if (IsFullRangeFormat(to) || IsFullInScaler(to))
        return AVCOL_RANGE_JPEG;
    if (wanted != AVCOL_RANGE_UNSPECIFIED)
        return wanted;
    if (IsRgb(from))
        return AVCOL_RANGE_MPEG;
    return IsFullRangeFormat(from) ? static_cast<int>(AVCOL_RANGE_JPEG) : tagged;
}

AVPixelFormat AlphaFormat(AVPixelFormat format) {
    return HasAlpha(format) ? format : ToAv(Conf::BlendFormatsFor(FromAv(format)).alpha);
}

bool IsPackedRgb(const AVFrame& frame) {
    const auto format = static_cast<AVPixelFormat>(frame.format);
    return IsRgb(format) && !(av_pix_fmt_desc_get(format)->flags & AV_PIX_FMT_FLAG_PLANAR);
}

/// What the scaler reads by way of a palette. It takes that for colours of BT.601 in limited range, but for packed RGB
/// of the same size.
bool HasPalette(AVPixelFormat format) {
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(format);
    const bool isRgb = (descriptor.flags & AV_PIX_FMT_FLAG_RGB) != 0;
    return (descriptor.flags & AV_PIX_FMT_FLAG_PAL) || (isRgb && av_get_bits_per_pixel(&descriptor) <= 8);
}

int ScalerFlags(int interpolation) {
    constexpr int CARE = SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;
    return interpolation == SWS_FAST_BILINEAR ? interpolation : interpolation | CARE;
}

/// Whether the scaler would make the samples, but not as exact as they are deep: it multiplies by matrices of eight
/// bits.
bool IsTooDeepForScaler(const ColourChange& change, AVPixelFormat format) {
    constexpr int EXACT = 12;
    return IsRgb(format) && change.before.matrix != AVCOL_SPC_RGB && av_pix_fmt_desc_get(format)->comp[0].depth > EXACT;
}

/// Pixels of a side of `whole`, on one of `part`, on whole chroma samples.
int Shrunk(int pixels, int whole, int part) {
    return static_cast<int>(std::int64_t{pixels} * part / whole) / 2 * 2;
}

void CopyTags(AVFrame& to, const AVFrame& from) {
    Check(av_frame_copy_props(&to, &from), TranscodingError::OutOfMemory, "Copying the tags of a picture failed");
}

} // namespace

FrameTarget DraftOf(const FrameTarget& target, const Conf::Draft& draft) {
    FrameTarget result = target;
    result.width = static_cast<int>(draft.width);
    result.height = static_cast<int>(draft.height);
    result.place.x = Shrunk(target.place.x, target.width, result.width);
    result.place.y = Shrunk(target.place.y, target.height, result.height);
    result.place.width = std::max(2, Shrunk(target.place.width, target.width, result.width));
    result.place.height = std::max(2, Shrunk(target.place.height, target.height, result.height));
    result.interpolation = SWS_FAST_BILINEAR;
    return result;
}

bool FrameConverter::Setup::operator==(const Setup& other) const {
    return std::tie(sourceWidth, sourceHeight, sourceFormat, width, height, format, sourceLocation, pass.interpolation,
                    pass.threads) == std::tie(other.sourceWidth, other.sourceHeight, other.sourceFormat, other.width,
                                              other.height, other.format, other.sourceLocation,
                                              other.pass.interpolation, other.pass.threads) &&
           SameColour(pass.before, other.pass.before) && SameColour(pass.after, other.pass.after);
}

ColourInfo FrameConverter::ResolveColour(const AVFrame& frame, AVPixelFormat format, const ColourInfo& wanted) {
    ColourInfo colour = ColourOf(frame);
    if (wanted.primaries != AVCOL_PRI_UNSPECIFIED)
        colour.primaries = wanted.primaries;
    if (wanted.transfer != AVCOL_TRC_UNSPECIFIED)
        colour.transfer = wanted.transfer;
    const bool wasRgb = IsRgb(static_cast<AVPixelFormat>(frame.format));
    if (IsRgb(format)) {
        colour.matrix = AVCOL_SPC_RGB;
        colour.range = AVCOL_RANGE_JPEG;
        return colour;
    }
    if (wanted.matrix != AVCOL_SPC_UNSPECIFIED && wanted.matrix != AVCOL_SPC_RGB)
        colour.matrix = wanted.matrix;
    else if (wasRgb || colour.matrix == AVCOL_SPC_RGB)
        colour.matrix = CompleteColour(colour, frame.width, frame.height, format, false).matrix;
    colour.range = ResolveRange(colour.range, static_cast<AVPixelFormat>(frame.format), format, wanted.range);
    return colour;
}

void FrameConverter::Configure(const Setup& wanted) {
    if (context && setup == wanted)
        return;
    const char* const what = "This conversion of pictures is not possible";
    context.reset(Allocated(sws_alloc_context()));
    const auto set = [this, what](const char* name, std::int64_t value) {
        Check(av_opt_set_int(context.get(), name, value, 0), TranscodingError::FilterFailed, what);
    };
    const Pass& pass = wanted.pass;
    const bool fullBefore = pass.before.range == AVCOL_RANGE_JPEG;
    const bool fullAfter = pass.after.range == AVCOL_RANGE_JPEG;
    set("srcw", wanted.sourceWidth);
    set("srch", wanted.sourceHeight);
    set("src_format", wanted.sourceFormat);
    set("src_range", fullBefore);
    set("dstw", wanted.width);
    set("dsth", wanted.height);
    set("dst_format", wanted.format);
    set("dst_range", fullAfter);
    set("sws_flags", ScalerFlags(pass.interpolation));
    set("threads", pass.threads);
    PlaceChroma(wanted);
    Check(sws_init_context(context.get(), nullptr, nullptr), TranscodingError::FilterFailed, what);
    // RGB has the coefficients of the matrix that it is made from or becomes.
    const int before = pass.before.matrix == AVCOL_SPC_RGB ? pass.after.matrix : pass.before.matrix;
    const int after = pass.after.matrix == AVCOL_SPC_RGB ? pass.before.matrix : pass.after.matrix;
    constexpr int UNITY = 1 << 16;
    // Fails where neither side is YUV: then there is nothing to be set.
    sws_setColorspaceDetails(context.get(), sws_getCoefficients(before), fullBefore, sws_getCoefficients(after),
                             fullAfter, 0, UNITY, UNITY);
    setup = wanted;
}

// Left to itself it has chroma between the pixels, and moves it by up to half a pixel.
void FrameConverter::PlaceChroma(const Setup& wanted) {
    const auto place = [this](const char* end, int format, AVChromaLocation location) {
        const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(format));
        const ChromaPlace at = PlaceOf(location);
        const std::string prefix(end);
        if (descriptor.log2_chroma_w)
            av_opt_set_int(context.get(), (prefix + "_h_chr_pos").c_str(), at.across, 0);
        if (descriptor.log2_chroma_h)
            av_opt_set_int(context.get(), (prefix + "_v_chr_pos").c_str(), at.down, 0);
    };
    place("src", wanted.sourceFormat, wanted.sourceLocation);
    place("dst", wanted.format, MADE_LOCATION);
}

void FrameConverter::Scale(const AVFrame& from, AVFrame& to, const Pass& pass) {
    if (planar.Scale(from, to, {pass.before, pass.after, pass.interpolation}))
        return;
    Configure({from.width, from.height, from.format, to.width, to.height, to.format, ChromaLocationOf(from), pass});
    Check(sws_scale_frame(context.get(), &to, &from), TranscodingError::FilterFailed, "Converting a picture failed");
    if (!IsPackedRgb(from)) // those the scaler widens itself
        WidenAlpha(to, AlphaDepthOf(from));
}

// The rows of the two fields show two instants: they must not be mixed.
void FrameConverter::ScaleFields(const AVFrame& from, AVFrame& to, const Pass& pass) {
    for (const bool bottom : {false, true}) {
        const FrameHandle fromField = MakeFieldView(from, bottom);
        const FrameHandle toField = MakeFieldView(to, bottom);
        Scale(*fromField, *toField, pass);
    }
}

void FrameConverter::Fill(AVFrame& result, const AVFrame& frame, const FrameTarget& target, const Pass& pass) {
    const auto format = static_cast<AVPixelFormat>(frame.format);
    const FrameRect source = AlignToChroma(target.source, format, frame.width, frame.height);
    const FrameRect place =
        AlignToChroma(target.place, static_cast<AVPixelFormat>(result.format), target.width, target.height);
    const FrameHandle from = MakeView(frame, source);
    const FrameHandle to = MakeView(result, place);
    const bool rowsChange = source.height != place.height || ChromaRowsOf(frame) != ChromaRowsOf(result);
    const bool fields = HoldsFields(frame) && rowsChange && source.height % 4 == 0 && place.height % 4 == 0 &&
                        source.y % 4 == 0 && place.y % 4 == 0;
    if (fields)
        ScaleFields(*from, *to, pass);
    else
        Scale(*from, *to, pass);
    // After the scaler, which writes whole vectors and so a little over the edge.
    FillAround(result, place, target.transparentRest);
}

void FrameConverter::FillWeighted(AVFrame& result, const AVFrame& frame, const FrameTarget& target, const Pass& pass) {
    const bool scaled = target.source.width != target.place.width || target.source.height != target.place.height;
    const bool joined = scaled || LosesChroma(frame, result);
    if (!joined || !CanPremultiply(static_cast<AVPixelFormat>(result.format)) || !NeedsPremultiplying(frame))
        return Fill(result, frame, target, pass);
    const FrameHandle weighted = Premultiplied(frame, flattened);
    SetColour(*weighted, pass.before);
    Fill(result, *weighted, target, pass);
    Unpremultiply(result);
}

FrameHandle FrameConverter::Flatten(const AVFrame& frame) {
    const auto format = static_cast<AVPixelFormat>(frame.format);
    if (CanBlend(format))
        return BlendOverBlack(frame, flattened);
    FrameTarget target;
    target.width = frame.width;
    target.height = frame.height;
    target.sampleAspect = frame.sample_aspect_ratio;
    target.format = av_pix_fmt_desc_get(format)->comp[0].depth > 8 ? AV_PIX_FMT_GBRAP16 : AV_PIX_FMT_GBRAP;
    target.source = target.place = {0, 0, frame.width, frame.height};
    return BlendOverBlack(*FrameConverter().Convert(frame, target), flattened);
}

FrameHandle FrameConverter::Reshape(const AVFrame& frame, const FrameTarget& target, const ColourChange& change,
                                    AVPixelFormat format) {
    const Pass pass{change.before, change.after, target.interpolation, target.threads};
    const bool done = frame.format == format && SameColour(pass.before, pass.after) &&
                      IsWhole(target.place, target.width, target.height) &&
                      IsWhole(target.source, target.width, target.height) && frame.width == target.width &&
                      frame.height == target.height;
    FrameHandle result = done ? MakeFrameReference(frame) : pool.Get(format, target.width, target.height);
    if (!done) {
        CopyTags(*result, frame);
        result->chroma_location = MADE_LOCATION;
    }
    result->sample_aspect_ratio = target.sampleAspect;
    SetColour(*result, change.after);
    if (!done)
        FillWeighted(*result, frame, target, pass);
    return result;
}

// Size first: fewer pixels to convert where it shrinks, and what grows is as exact either way.
FrameHandle FrameConverter::Recolour(const AVFrame& frame, const FrameTarget& target, const ColourChange& change,
                                     AVPixelFormat format) {
    const auto own = static_cast<AVPixelFormat>(frame.format);
    const AVPixelFormat kept = target.transparentRest ? AlphaFormat(own) : own;
    const FrameHandle shaped = Reshape(frame, target, {change.before, change.before},
                                       ColourConverter::FormatFor(kept, target.width, target.height));
    const AVPixelFormat made = ColourConverter::FormatFor(format, target.width, target.height);
    FrameHandle result = colours.Convert(*shaped, change, made);
    HasAlpha(static_cast<AVPixelFormat>(shaped->format)) ? WidenAlpha(*result, AlphaDepthOf(*shaped))
                                                         : MakeOpaque(*result); // the filters leave it half done
    if (made == format)
        return result;
    FrameTarget rest = target;
    rest.source = rest.place = {0, 0, target.width, target.height};
    if (!finish)
        finish = std::make_unique<FrameConverter>();
    return finish->Reshape(*result, rest, {change.after, change.after}, format);
}

FrameHandle FrameConverter::Unfold(const AVFrame& frame) {
    FrameHandle result = unfolded.Get(AV_PIX_FMT_BGRA, frame.width, frame.height);
    CopyTags(*result, frame);
    const ColourInfo colour = EffectiveColour(frame);
    Scale(frame, *result, {colour, colour, SWS_POINT, 1});
    return result;
}

FrameHandle FrameConverter::Convert(const AVFrame& frame, const FrameTarget& target) {
    const auto own = static_cast<AVPixelFormat>(frame.format);
    const AVPixelFormat format = target.format == AV_PIX_FMT_NONE ? own : target.format;
    if (own != format && HasPalette(own))
        return Convert(*Unfold(frame), target);
    const FrameHandle flat = HasAlpha(own) && !HasAlpha(format) ? Flatten(frame) : FrameHandle();
    const AVFrame& whole = flat ? *flat : frame;
    const ColourInfo tags = ResolveColour(whole, format, target.colour);
    const ColourInfo before = EffectiveColour(whole);
    const ColourChange change{before, Completed(tags, before)};
    const bool recolours = ColourConverter::IsNeeded(change) || IsTooDeepForScaler(change, format);
    FrameHandle result = recolours ? Recolour(whole, target, change, format) : Reshape(whole, target, change, format);
    SetColour(*result, tags);
    return result;
}

} // namespace Kestra::FF
