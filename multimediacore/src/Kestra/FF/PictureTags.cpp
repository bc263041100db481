#include "Kestra/FF/PictureTags.h"

namespace Kestra::FF {

namespace {

AVPixelFormat PlainFormat(int format) {
    switch (format) {
    case AV_PIX_FMT_YUVJ411P:
        return AV_PIX_FMT_YUV411P;
    case AV_PIX_FMT_YUVJ420P:
        return AV_PIX_FMT_YUV420P;
    case AV_PIX_FMT_YUVJ422P:
        return AV_PIX_FMT_YUV422P;
    case AV_PIX_FMT_YUVJ440P:
        return AV_PIX_FMT_YUV440P;
    case AV_PIX_FMT_YUVJ444P:
        return AV_PIX_FMT_YUV444P;
    default:
        return AV_PIX_FMT_NONE;
    }
}

} // namespace

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
    if (const AVPixelFormat plain = PlainFormat(picture.format); plain != AV_PIX_FMT_NONE) {
        picture.format = plain;
        picture.color_range = AVCOL_RANGE_JPEG;
    }
}

} // namespace Kestra::FF
