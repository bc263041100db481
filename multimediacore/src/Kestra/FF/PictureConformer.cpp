#include "Kestra/FF/PictureConformer.h"

#include "Kestra/FF/AlphaBlend.h"
#include "Kestra/FF/Convert.h"
#include "Kestra/FF/Error.h"
#include <algorithm>
#include <thread>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

constexpr int NEUTRAL = 0;
constexpr int UNITY = 1 << 16;
/// Pictures from this many pixels on are worth several threads.
constexpr int LARGE_PICTURE = 1920 * 1080;

bool IsFullRange(const AVFrame& picture, AVPixelFormat format) {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(format);
    return picture.color_range == AVCOL_RANGE_JPEG || IsFullRangeFormat(format) ||
           (descriptor && (descriptor->flags & AV_PIX_FMT_FLAG_RGB) != 0);
}

const int* Coefficients(int matrix) {
    switch (matrix) {
    case AVCOL_SPC_FCC:
        return sws_getCoefficients(SWS_CS_FCC);
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_SMPTE170M:
        return sws_getCoefficients(SWS_CS_ITU601);
    case AVCOL_SPC_SMPTE240M:
        return sws_getCoefficients(SWS_CS_SMPTE240M);
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
        return sws_getCoefficients(SWS_CS_BT2020);
    default:
        return sws_getCoefficients(SWS_CS_ITU709);
    }
}

/// BT.470BG and SMPTE 170M are two names of one matrix.
int MatrixClass(int matrix) {
    return matrix == AVCOL_SPC_BT470BG ? static_cast<int>(AVCOL_SPC_SMPTE170M) : matrix;
}

void SetNumber(SwsContext* scaler, const char* name, std::int64_t value) {
    Check(av_opt_set_int(scaler, name, value, 0), TranscodingError::FilterFailed, "a setting of the scaler");
}

} // namespace

PictureConformer::PictureConformer(const EncodePicture& target)
    : target(target) {}

FrameHandle PictureConformer::Convert(const AVFrame& picture) {
    FrameHandle flat;
    const AVFrame* source = &picture;
    if (HasAlpha(static_cast<AVPixelFormat>(picture.format)) && !HasAlpha(target.format)) {
        flat = Flatten(picture);
        source = flat.get();
    }
    const auto format = static_cast<AVPixelFormat>(source->format);
    Conf::ColourInfo colour = ColourOf(*source);
    // A picture that says nothing of its colour is taken for one of the stream that it came in.
    if (colour.matrix == AVCOL_SPC_UNSPECIFIED && target.colour.matrix != AVCOL_SPC_RGB)
        colour.matrix = target.colour.matrix;
    colour = CompleteColour(colour, source->width, source->height, format, IsFullRange(*source, format));
    FrameHandle result = Fits(*source, colour) ? MakeFrameReference(*source) : Scale(*source, colour);
    Tag(*result, *source);
    return result;
}

bool PictureConformer::Fits(const AVFrame& picture, const Conf::ColourInfo& colour) const {
    return picture.width == target.width && picture.height == target.height &&
           PlainFormat(static_cast<AVPixelFormat>(picture.format)) == PlainFormat(target.format) &&
           MatrixClass(colour.matrix) == MatrixClass(target.colour.matrix) && colour.range == target.colour.range;
}

FrameHandle PictureConformer::Flatten(const AVFrame& picture) {
    const auto format = static_cast<AVPixelFormat>(picture.format);
    if (CanBlend(format))
        return BlendOverBlack(picture, flattened);
    const bool deep = av_pix_fmt_desc_get(format)->comp[0].depth > 8;
    EncodePicture planarTarget;
    planarTarget.format = deep ? AV_PIX_FMT_GBRAP16 : AV_PIX_FMT_GBRAP;
    planarTarget.width = picture.width;
    planarTarget.height = picture.height;
    planarTarget.colour = CompleteColour(ColourOf(picture), picture.width, picture.height, planarTarget.format, true);
    const FrameHandle converted = PictureConformer(planarTarget).Convert(picture);
    return BlendOverBlack(*converted, flattened);
}

void PictureConformer::SetUpScaler(const AVFrame& picture, const Conf::ColourInfo& colour) {
    const bool same = scaler && input.width == picture.width && input.height == picture.height &&
                      input.format == picture.format && input.matrix == colour.matrix && input.range == colour.range;
    if (same)
        return;
    scaler.reset(Allocated(sws_alloc_context()));
    SetNumber(scaler.get(), "srcw", picture.width);
    SetNumber(scaler.get(), "srch", picture.height);
    SetNumber(scaler.get(), "src_format", PlainFormat(static_cast<AVPixelFormat>(picture.format)));
    SetNumber(scaler.get(), "dstw", target.width);
    SetNumber(scaler.get(), "dsth", target.height);
    SetNumber(scaler.get(), "dst_format", PlainFormat(target.format));
    SetNumber(scaler.get(), "src_range", colour.range == AVCOL_RANGE_JPEG);
    SetNumber(scaler.get(), "dst_range", target.colour.range == AVCOL_RANGE_JPEG);
    SetNumber(scaler.get(), "sws_flags", SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP | SWS_FULL_CHR_H_INT);
    if (target.width * target.height >= LARGE_PICTURE)
        SetNumber(scaler.get(), "threads", std::clamp(static_cast<int>(std::thread::hardware_concurrency()) / 2, 1, 8));
    Check(sws_init_context(scaler.get(), nullptr, nullptr), TranscodingError::FilterFailed,
          "The scaler does not know this conversion of pictures");
    // It answers with a failure where neither side is YUV; then there is nothing to be set.
    sws_setColorspaceDetails(scaler.get(), Coefficients(colour.matrix), colour.range == AVCOL_RANGE_JPEG,
                             Coefficients(target.colour.matrix), target.colour.range == AVCOL_RANGE_JPEG, NEUTRAL,
                             UNITY, UNITY);
    input = {picture.width, picture.height, picture.format, colour.matrix, colour.range};
}

FrameHandle PictureConformer::Scale(const AVFrame& picture, const Conf::ColourInfo& colour) {
    SetUpScaler(picture, colour);
    FrameHandle result = pictures.Get(PlainFormat(target.format), target.width, target.height);
    Check(av_frame_copy_props(result.get(), &picture), TranscodingError::FilterFailed, "properties of a picture");
    FrameHandle plain = MakeFrameReference(picture);
    plain->format = PlainFormat(static_cast<AVPixelFormat>(picture.format));
    Check(sws_scale_frame(scaler.get(), result.get(), plain.get()), TranscodingError::FilterFailed,
          "The scaler failed on a picture");
    return result;
}

void PictureConformer::Tag(AVFrame& picture, const AVFrame& source) const {
    picture.format = target.format;
    picture.sample_aspect_ratio = target.sampleAspect;
    SetColour(picture, target.colour);
    const bool keepsFields = target.interlaced && source.height == target.height;
    picture.interlaced_frame = keepsFields ? source.interlaced_frame : 0;
    picture.top_field_first = keepsFields ? source.top_field_first : 0;
}

} // namespace Kestra::FF
