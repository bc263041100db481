#include "Kestra/FF/Encode/EncoderCatalogue.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Encode/VideoDriver.h"
#include <string>

namespace Kestra::FF {

using Conf::CodecID;
using Proc::TranscodingError;

namespace {

struct Choice {
    CodecID codec;
    const char* encoder;
};

// Of audio; a codec that neither stands here nor has a driver has the library's own encoder.
constexpr Choice CHOICES[] = {
    {CodecID::AAC, "aac"},
    {CodecID::Opus, "libopus"},
    {CodecID::MP3, "libmp3lame"},
    {CodecID::Vorbis, "libvorbis"},
};

/// Those of the codec that this installation has, the preferred one first.
std::vector<const AVCodec*> Installed(CodecID id) {
    std::vector<const AVCodec*> encoders;
    const auto add = [&encoders](const char* name) {
        if (const AVCodec* const encoder = avcodec_find_encoder_by_name(name))
            encoders.push_back(encoder);
    };
    for (const VideoDriver* const driver : VideoDriver::All())
        if (driver->GetCodec() == id)
            add(driver->GetEncoder());
    for (const Choice& choice : CHOICES)
        if (choice.codec == id)
            add(choice.encoder);
    if (encoders.empty())
        if (const AVCodec* const other = avcodec_find_encoder(ToAv(id)))
            encoders.push_back(other);
    return encoders;
}

const AVCodec* FindByID(CodecID id) {
    const std::vector<const AVCodec*> encoders = Installed(id);
    return encoders.empty() ? nullptr : encoders.front();
}

/// `codec`, or the first of the same codec that serves where this one does not; `codec` where none does.
template <class Serves>
const AVCodec& FirstThatServes(const AVCodec& codec, Serves serves) {
    const VideoDriver& driver = VideoDriver::Of(codec);
    if (serves(driver))
        return codec;
    for (const AVCodec* const other : Installed(driver.GetCodec()))
        if (serves(VideoDriver::Of(*other)))
            return *other;
    return codec;
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
    return id == CodecID::None ? std::vector<const AVCodec*>() : Installed(id);
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
    return FirstThatServes(codec, [=](const VideoDriver& driver) { return driver.TakesSize(width, height); });
}

const AVCodec& EncoderForExactRates(const AVCodec& codec) {
    return FirstThatServes(codec, [](const VideoDriver& driver) { return driver.MeetsExactRates(); });
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
