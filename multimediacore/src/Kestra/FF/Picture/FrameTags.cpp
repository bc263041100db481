// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/FrameTags.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Picture/EncoderInput.h"
#include "Kestra/FF/Picture/HdrMetadata.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

/// Stills and the codecs made for them have the primaries of sRGB, whatever their matrix and size.
bool IsCodecOfStills(AVCodecID codec) {
    return codec == AV_CODEC_ID_MJPEG || codec == AV_CODEC_ID_PNG || codec == AV_CODEC_ID_WEBP ||
           codec == AV_CODEC_ID_BMP || codec == AV_CODEC_ID_TIFF || codec == AV_CODEC_ID_GIF;
}

/// Gray alone: luma or alpha beside it.
bool IsGray(AVPixelFormat format) {
    const AVPixFmtDescriptor* const descriptor = av_pix_fmt_desc_get(format);
    if (!descriptor || (descriptor->flags & (AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL)))
        return false;
    return descriptor->nb_components - (HasAlpha(format) ? 1 : 0) == 1;
}

/// Whether whoever makes pictures of that codec has to tell a full range: else they are of the limited one.
bool IsLimitedUnlessTold(AVCodecID codec) {
    return codec == AV_CODEC_ID_H264 || codec == AV_CODEC_ID_HEVC || codec == AV_CODEC_ID_VP9 ||
           codec == AV_CODEC_ID_AV1;
}

/// Codes that are reserved, or that the library has no name for, tell nothing.
void ForgetReserved(AVFrame& frame) {
    if (frame.color_primaries == AVCOL_PRI_RESERVED0 || !av_color_primaries_name(frame.color_primaries) ||
        frame.color_primaries == AVCOL_PRI_RESERVED)
        frame.color_primaries = AVCOL_PRI_UNSPECIFIED;
    if (frame.color_trc == AVCOL_TRC_RESERVED0 || !av_color_transfer_name(frame.color_trc) ||
        frame.color_trc == AVCOL_TRC_RESERVED)
        frame.color_trc = AVCOL_TRC_UNSPECIFIED;
    if (frame.colorspace == AVCOL_SPC_RESERVED || !av_color_space_name(frame.colorspace))
        frame.colorspace = AVCOL_SPC_UNSPECIFIED;
}

} // namespace

bool TellsColour(const AVFrame& frame) {
    return IsRgb(static_cast<AVPixelFormat>(frame.format)) ||
           (frame.color_primaries != AVCOL_PRI_UNSPECIFIED && frame.color_trc != AVCOL_TRC_UNSPECIFIED &&
            frame.colorspace != AVCOL_SPC_UNSPECIFIED);
}

void GuessColour(AVFrame& frame, AVCodecID codec) {
    Conf::ColourInfo told = ColourOf(frame);
    if (IsCodecOfStills(codec) && told.primaries == AVCOL_PRI_UNSPECIFIED)
        told.primaries = AVCOL_PRI_BT709;
    Conf::ColourInfo guess = CompleteColour(told, frame.width, frame.height, static_cast<AVPixelFormat>(frame.format),
                                            told.range == AVCOL_RANGE_JPEG);
    guess.transfer = told.transfer == AVCOL_TRC_UNSPECIFIED ? guess.transfer : told.transfer;
    SetColour(frame, guess);
}

void TagFrame(AVFrame& frame, AVStream& stream, AVFormatContext& context) {
    frame.sample_aspect_ratio = av_guess_sample_aspect_ratio(&context, &stream, &frame);
    const AVCodecParameters& parameters = *stream.codecpar;
    if (frame.color_primaries == AVCOL_PRI_UNSPECIFIED)
        frame.color_primaries = parameters.color_primaries;
    if (frame.color_trc == AVCOL_TRC_UNSPECIFIED)
        frame.color_trc = parameters.color_trc;
    if (frame.colorspace == AVCOL_SPC_UNSPECIFIED)
        frame.colorspace = parameters.color_space;
    if (frame.color_range == AVCOL_RANGE_UNSPECIFIED)
        frame.color_range = parameters.color_range;
    // Scans, masks, pictures of instruments: black is 0, as it is in RGB.
    if (frame.color_range == AVCOL_RANGE_UNSPECIFIED && IsGray(static_cast<AVPixelFormat>(frame.format)) &&
        !IsLimitedUnlessTold(parameters.codec_id))
        frame.color_range = AVCOL_RANGE_JPEG;
    ForgetReserved(frame);
    const auto format = static_cast<AVPixelFormat>(frame.format);
    if (CarriesHdr(frame.color_trc, format))
        AddHdrMetadata(frame, stream);
    if (IsFullRangeFormat(format)) {
        frame.format = PlainFormat(format);
        frame.color_range = AVCOL_RANGE_JPEG;
    }
}

} // namespace Kestra::FF
