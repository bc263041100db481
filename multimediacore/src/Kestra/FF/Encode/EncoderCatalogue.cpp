// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/EncoderCatalogue.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include "Kestra/FF/Encode/AudioDriver.h"
#include "Kestra/FF/Encode/VideoDriver.h"
#include <string>

namespace Kestra::FF {

using Conf::CodecID;
using Proc::TranscodingError;

namespace {

/// Those of the codec that this installation has, the preferred one first. One that has no driver has the library's
/// own.
std::vector<const AVCodec*> Installed(CodecID id) {
    std::vector<const AVCodec*> encoders;
    const auto add = [&encoders](const char* name) {
        if (const AVCodec* const encoder = avcodec_find_encoder_by_name(name))
            encoders.push_back(encoder);
    };
    for (const VideoDriver* const driver : VideoDriver::All())
        if (driver->GetCodec() == id)
            add(driver->GetEncoder());
    for (const AudioDriver* const driver : AudioDriver::All())
        if (driver->GetCodec() == id && driver->GetEncoder())
            add(driver->GetEncoder());
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
    const AVPixelFormat* const taken = PixelFormatsOf(codec);
    if (!taken)
        return true;
    if (const VideoDriver& driver = VideoDriver::Of(codec); driver.TakesFormat(format))
        format = driver.CodedFormat(format);
    for (const AVPixelFormat* known = taken; *known != AV_PIX_FMT_NONE; ++known)
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
    const AVSampleFormat format = ToAv(static_cast<Conf::SampleFormats>(stream.GetSampleFormat()));
    return AudioDriver::Of(codec).EncoderFor(codec, description.GetCodecID(), format, stream.GetSampleBits());
}

} // namespace Kestra::FF
