#include "Kestra/FF/PictureTags.h"

#include "Kestra/FF/EncodePicture.h"
#include "Kestra/FF/HdrMetadata.h"

namespace Kestra::FF {

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
    const auto format = static_cast<AVPixelFormat>(picture.format);
    if (CarriesHdr(picture.color_trc, format))
        AddHdrMetadata(picture, stream);
    if (IsFullRangeFormat(format)) {
        picture.format = PlainFormat(format);
        picture.color_range = AVCOL_RANGE_JPEG;
    }
}

} // namespace Kestra::FF
