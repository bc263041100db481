#include "Kestra/FF/Encode/EncoderCatalogue.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include <string>

namespace Kestra::FF {

using Conf::CodecID;
using Proc::TranscodingError;

namespace {

struct Choice {
    CodecID codec;
    const char* encoder;
};

constexpr int SMALLEST_SVT_SIDE = 64;

// In order of preference; a codec that does not stand here has the library's own encoder.
constexpr Choice CHOICES[] = {
    {CodecID::H264, "libx264"},  {CodecID::HEVC, "libx265"},     {CodecID::VP9, "libvpx-vp9"},
    {CodecID::VP8, "libvpx"},    {CodecID::ProRes, "prores_ks"}, {CodecID::MPEG4, "mpeg4"},
    {CodecID::AV1, "libsvtav1"}, {CodecID::AV1, "libaom-av1"},   {CodecID::AAC, "aac"},
    {CodecID::Opus, "libopus"},  {CodecID::MP3, "libmp3lame"},   {CodecID::Vorbis, "libvorbis"},
};

const AVCodec* FindByID(CodecID id) {
    for (const Choice& choice : CHOICES)
        if (choice.codec == id)
            if (const AVCodec* codec = avcodec_find_encoder_by_name(choice.encoder))
                return codec;
    return avcodec_find_encoder(ToAv(id));
}

const AVCodec& InPlaceOfSvt(const AVCodec& codec) {
    const AVCodec* other =
        std::string(codec.name) == "libsvtav1" ? avcodec_find_encoder_by_name("libaom-av1") : nullptr;
    return other ? *other : codec;
}

AVCodecID PcmOfBits(int bits) {
    if (bits <= 8)
        return AV_CODEC_ID_PCM_U8;
    if (bits <= 16)
        return AV_CODEC_ID_PCM_S16LE;
    if (bits <= 24)
        return AV_CODEC_ID_PCM_S24LE;
    return bits <= 32 ? AV_CODEC_ID_PCM_S32LE : AV_CODEC_ID_PCM_S64LE;
}

AVCodecID PcmFor(AVSampleFormat format, int bits) {
    constexpr int WHOLE_FLOAT = 32;
    constexpr int WHOLE_DOUBLE = 64;
    const AVSampleFormat packed = av_get_packed_sample_fmt(format);
    if (packed == AV_SAMPLE_FMT_FLT && bits == WHOLE_FLOAT)
        return AV_CODEC_ID_PCM_F32LE;
    if (packed == AV_SAMPLE_FMT_DBL && bits == WHOLE_DOUBLE)
        return AV_CODEC_ID_PCM_F64LE;
    return bits > 0 ? PcmOfBits(bits) : AV_CODEC_ID_PCM_S16LE;
}

std::string NameIn(const Conf::IFormatCodec& description) {
    const Core::Property& tree = description.GetProperty();
    return tree.ChildExists(Conf::IFormatCodec::TAG_CODEC_ID) ? tree[Conf::IFormatCodec::TAG_CODEC_ID].GetString() : "";
}

} // namespace

const AVCodec& FindEncoder(const Conf::IFormatCodec& description, AVMediaType medium) {
    const std::string name = NameIn(description);
    const char* const what = medium == AVMEDIA_TYPE_VIDEO ? "video" : "audio";
    const CodecID id = description.GetCodecID();
    if (id == CodecID::None)
        Fail(TranscodingError::CodecNotFound, name.empty()
                                                  ? std::string("The encoder's description names no ") + what + " codec"
                                                  : "There is no codec \"" + name + "\"");
    const AVCodec* codec = FindByID(id);
    if (!codec)
        Fail(TranscodingError::CodecNotFound, "This installation has no encoder for the codec \"" + name + "\"");
    if (codec->type != medium)
        Fail(TranscodingError::CodecNotFound, "The codec \"" + name + "\" is not one for " + what);
    return *codec;
}

std::vector<const AVCodec*> EncodersOf(CodecID id) {
    const AVCodec* const preferred = id == CodecID::None ? nullptr : FindByID(id);
    if (!preferred)
        return {};
    std::vector<const AVCodec*> encoders{preferred};
    if (const AVCodec* const other = &InPlaceOfSvt(*preferred); other != preferred)
        encoders.push_back(other);
    return encoders;
}

bool TakesFormat(const AVCodec& codec, AVPixelFormat format) {
    if (!codec.pix_fmts)
        return true;
    for (const AVPixelFormat* known = codec.pix_fmts; *known != AV_PIX_FMT_NONE; ++known)
        if (*known == format)
            return true;
    return false;
}

const AVCodec& EncoderForSize(const AVCodec& codec, int width, int height) {
    return width >= SMALLEST_SVT_SIDE && height >= SMALLEST_SVT_SIDE ? codec : InPlaceOfSvt(codec);
}

const AVCodec& EncoderForTwoPasses(const AVCodec& codec) {
    return InPlaceOfSvt(codec);
}

const AVCodec& EncoderForConstantBitrate(const AVCodec& codec) {
    return InPlaceOfSvt(codec);
}

const AVCodec& EncoderForSamples(const AVCodec& codec, const Conf::IFormatCodec& description,
                                 const Conf::IFormatCodecAudio& stream) {
    if (description.GetCodecID() != CodecID::PCM)
        return codec;
    const AVSampleFormat format = ToAv(static_cast<Conf::SampleFormats>(stream.GetSampleFormat()));
    const AVCodec* const found = avcodec_find_encoder(PcmFor(format, stream.GetSampleBits()));
    return found ? *found : codec;
}

} // namespace Kestra::FF
