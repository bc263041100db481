#include "Kestra/FF/Picture/PictureTags.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Picture/EncodePicture.h"
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

/// Codes that are reserved, or that the library has no name for, tell nothing.
void ForgetReserved(AVFrame& picture) {
    if (picture.color_primaries == AVCOL_PRI_RESERVED0 || !av_color_primaries_name(picture.color_primaries) ||
        picture.color_primaries == AVCOL_PRI_RESERVED)
        picture.color_primaries = AVCOL_PRI_UNSPECIFIED;
    if (picture.color_trc == AVCOL_TRC_RESERVED0 || !av_color_transfer_name(picture.color_trc) ||
        picture.color_trc == AVCOL_TRC_RESERVED)
        picture.color_trc = AVCOL_TRC_UNSPECIFIED;
    if (picture.colorspace == AVCOL_SPC_RESERVED || !av_color_space_name(picture.colorspace))
        picture.colorspace = AVCOL_SPC_UNSPECIFIED;
}

} // namespace

bool TellsColour(const AVFrame& picture) {
    return IsRgb(static_cast<AVPixelFormat>(picture.format)) ||
           (picture.color_primaries != AVCOL_PRI_UNSPECIFIED && picture.color_trc != AVCOL_TRC_UNSPECIFIED &&
            picture.colorspace != AVCOL_SPC_UNSPECIFIED);
}

void GuessColour(AVFrame& picture, AVCodecID codec) {
    Conf::ColourInfo told = ColourOf(picture);
    if (IsCodecOfStills(codec) && told.primaries == AVCOL_PRI_UNSPECIFIED)
        told.primaries = AVCOL_PRI_BT709;
    Conf::ColourInfo guess = CompleteColour(told, picture.width, picture.height,
                                            static_cast<AVPixelFormat>(picture.format), told.range == AVCOL_RANGE_JPEG);
    guess.transfer = told.transfer == AVCOL_TRC_UNSPECIFIED ? guess.transfer : told.transfer;
    SetColour(picture, guess);
}

void TagPicture(AVFrame& picture, AVStream& stream, AVFormatContext& context) {
    picture.sample_aspect_ratio = av_guess_sample_aspect_ratio(&context, &stream, &picture);
    const AVCodecParameters& parameters = *stream.codecpar;
    if (picture.color_primaries == AVCOL_PRI_UNSPECIFIED)
        picture.color_primaries = parameters.color_primaries;
    if (picture.color_trc == AVCOL_TRC_UNSPECIFIED)
        picture.color_trc = parameters.color_trc;
    if (picture.colorspace == AVCOL_SPC_UNSPECIFIED)
        picture.colorspace = parameters.color_space;
    if (picture.color_range == AVCOL_RANGE_UNSPECIFIED)
        picture.color_range = parameters.color_range;
    ForgetReserved(picture);
    const auto format = static_cast<AVPixelFormat>(picture.format);
    if (CarriesHdr(picture.color_trc, format))
        AddHdrMetadata(picture, stream);
    if (IsFullRangeFormat(format)) {
        picture.format = PlainFormat(format);
        picture.color_range = AVCOL_RANGE_JPEG;
    }
}

} // namespace Kestra::FF
