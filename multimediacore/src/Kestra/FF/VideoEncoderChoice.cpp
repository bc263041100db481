#include "Kestra/FF/VideoEncoderChoice.h"

#include "Kestra/FF/Convert.h"
#include "Kestra/FF/Error.h"
#include "Kestra/FF/HdrMetadata.h"
#include <algorithm>
#include <climits>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Conf::IFormatCodecVideo;
using Proc::TranscodingError;

namespace {

bool Takes(const AVCodec& codec, AVPixelFormat format) {
    if (!codec.pix_fmts)
        return true;
    for (const AVPixelFormat* known = codec.pix_fmts; *known != AV_PIX_FMT_NONE; ++known)
        if (*known == format)
            return true;
    return false;
}

/// Codecs whose every profile shows anywhere only with 8 bit 4:2:0; others follow the stream.
bool IsDeliveryCodec(const AVCodec& codec) {
    return codec.id != AV_CODEC_ID_FFV1 && codec.id != AV_CODEC_ID_PRORES && codec.id != AV_CODEC_ID_DNXHD;
}

AVPixelFormat NearestFormat(const AVCodec& codec, AVPixelFormat source) {
    // It names the other one too, and then refuses it.
    if (codec.id == AV_CODEC_ID_MJPEG)
        return AV_PIX_FMT_YUVJ420P;
    if (IsDeliveryCodec(codec) && Takes(codec, AV_PIX_FMT_YUV420P))
        return AV_PIX_FMT_YUV420P;
    const AVPixelFormat plain = source == AV_PIX_FMT_NONE ? AV_PIX_FMT_YUV420P : PlainFormat(source);
    return codec.pix_fmts ? avcodec_find_best_pix_fmt_of_list(codec.pix_fmts, plain, 0, nullptr) : plain;
}

std::string TagOf(const IFormatCodecVideo& description, const char* tag) {
    return description.GetProperty().ChildExists(tag) ? description.GetProperty()[tag].GetString() : std::string();
}

AVPixelFormat ChooseFormat(const IFormatCodecVideo& description, const IFormatCodecVideo& stream,
                           const AVCodec& codec) {
    const std::string wanted = TagOf(description, IFormatCodecVideo::TAG_PIXEL_FORMAT);
    if (wanted.empty())
        return NearestFormat(codec, ToAv(stream.GetPixelFormat()));
    const AVPixelFormat named = ToAv(description.GetPixelFormat());
    const AVPixelFormat format = named != AV_PIX_FMT_NONE ? named : av_get_pix_fmt(wanted.c_str());
    if (format == AV_PIX_FMT_NONE || !Takes(codec, format))
        Fail(TranscodingError::CodecRefused,
             std::string(codec.name) + " does not take the pixel format \"" + wanted + "\"");
    return format;
}

int FitSide(std::uint32_t side, int chromaShift) {
    const auto limited = static_cast<int>(std::min<std::uint32_t>(side, INT_MAX));
    const int unit = 1 << chromaShift;
    return std::max(limited / unit, 1) * unit;
}

bool IsInterlaced(const IFormatCodecVideo& format) {
    const Core::Property& tree = format.GetProperty();
    return tree.ChildExists(IFormatCodecVideo::TAG_INTERLACED) && tree[IFormatCodecVideo::TAG_INTERLACED].GetBool();
}

bool CodesFields(AVCodecID codec) {
    return codec == AV_CODEC_ID_H264 || codec == AV_CODEC_ID_MPEG2VIDEO || codec == AV_CODEC_ID_MPEG4 ||
           codec == AV_CODEC_ID_PRORES || codec == AV_CODEC_ID_DNXHD;
}

int DepthOf(AVPixelFormat format) {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(format);
    return descriptor ? descriptor->comp[0].depth : 0;
}

/// The stream's colour, but none where it is of a high range that the encoder is not to have, or has too few bits for:
/// then it is that of ordinary pictures of the size.
Conf::ColourInfo ChooseColour(const IFormatCodecVideo& description, const IFormatCodecVideo& stream,
                              AVPixelFormat format) {
    Conf::ColourInfo colour = stream.GetColour();
    const AVPixelFormat own = ToAv(stream.GetPixelFormat());
    // What RGB leaves open is its own affair: the matrix that it gets says nothing of its primaries.
    if (IsRgb(own))
        colour.primaries = CompleteColour(colour, 0, 0, own, true).primaries;
    const bool keeps =
        TagOf(description, IFormatCodecVideo::TAG_DYNAMIC_RANGE) == IFormatCodecVideo::DYNAMIC_RANGE_SOURCE;
    const bool room =
        CarriesHdr(colour.transfer, format) || (own != AV_PIX_FMT_NONE && DepthOf(format) >= DepthOf(own));
    return !IsHighRange(colour.transfer) || (keeps && room) ? colour : Conf::ColourInfo{};
}

} // namespace

EncodePicture ChoosePicture(const IFormatCodecVideo& description, const IFormatCodecVideo& stream,
                            const AVCodec& codec) {
    EncodePicture picture;
    picture.format = ChooseFormat(description, stream, codec);
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(picture.format);
    const Conf::FrameInfo own = stream.GetFrameInfo();
    const Conf::FrameInfo frame = own.width > 0 && own.height > 0 ? own : description.GetFrameInfo();
    if (frame.width == 0 || frame.height == 0)
        Fail(TranscodingError::CodecRefused, "Neither the stream nor the encoder's description has a frame size");
    picture.width = FitSide(frame.width, descriptor.log2_chroma_w);
    picture.height = FitSide(frame.height, descriptor.log2_chroma_h);
    picture.sampleAspect = SampleAspectOf(frame);
    picture.interlaced = CodesFields(codec.id) && (IsInterlaced(description) || IsInterlaced(stream));
    Conf::ColourInfo colour = ChooseColour(description, stream, picture.format);
    const Conf::ColourInfo wanted = description.GetColour();
    if (wanted.matrix != AVCOL_SPC_UNSPECIFIED)
        colour.matrix = wanted.matrix;
    const bool full = IsFullRangeFormat(picture.format) || wanted.range == AVCOL_RANGE_JPEG;
    picture.colour = CompleteColour(colour, picture.width, picture.height, picture.format, full);
    return picture;
}

boost::rational<long long> ChooseFrameRate(const IFormatCodecVideo& description, const IFormatCodecVideo& stream) {
    const auto rate = description.GetFrameRate() > 0 ? description.GetFrameRate() : stream.GetFrameRate();
    if (rate <= 0)
        Fail(TranscodingError::CodecRefused, "Neither the stream nor the encoder's description has a frame rate");
    if (rate.numerator() > INT_MAX || rate.denominator() > INT_MAX)
        Fail(TranscodingError::CodecRefused, "A frame rate of " + std::to_string(rate.numerator()) + "/" +
                                                 std::to_string(rate.denominator()) + " is out of range");
    return rate;
}

} // namespace Kestra::FF
