// Encoders that choose what to leave out: AAC, Opus, MP3, Vorbis.
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Encode/AudioDrivers.h"
#include <algorithm>
#include <memory>

extern "C" {
#include <libavcodec/vorbis_parser.h>
#include <libavutil/opt.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

class Opus final : public AudioDriver {
public:
    Opus()
        : AudioDriver(Conf::CodecID::Opus, "libopus") {}

    void SetMode(AVCodecContext& context, const std::string& mode) const override {
        Check(av_opt_set(context.priv_data, "vbr", mode == "cbr" ? "off" : "on", 0), TranscodingError::CodecRefused,
              "vbr");
    }
};

class Mp3 final : public AudioDriver {
public:
    Mp3()
        : AudioDriver(Conf::CodecID::MP3, "libmp3lame") {}

    void SetMode(AVCodecContext& context, const std::string& mode) const override {
        if (mode == "abr" || mode == "vbr")
            Check(av_opt_set_int(context.priv_data, "abr", 1, 0), TranscodingError::CodecRefused, "abr");
    }
    int LeastPackets() const override { return 2; }
};

class Vorbis final : public AudioDriver {
public:
    Vorbis()
        : AudioDriver(Conf::CodecID::Vorbis, "libvorbis") {}

    // Without a bound it takes the bitrate for a quality, and gives noise half as much again.
    void SetMode(AVCodecContext& context, const std::string&) const override { context.rc_max_rate = context.bit_rate; }
    bool HasFixedPackets() const override { return false; }
    // Only their bytes tell.
    PacketLength LengthsOf(const AVCodecContext& context) const override {
        const std::shared_ptr<AVVorbisParseContext> parser(
            Allocated(av_vorbis_parse_init(context.extradata, context.extradata_size)),
            [](AVVorbisParseContext* parsing) { av_vorbis_parse_free(&parsing); });
        return [parser](const AVPacket& packet) {
            return std::max(av_vorbis_parse_frame(parser.get(), packet.data, packet.size), 0);
        };
    }
};

} // namespace

const AudioDriver& AacDriver() {
    static const AudioDriver driver(Conf::CodecID::AAC, "aac");
    return driver;
}

const AudioDriver& OpusDriver() {
    static const Opus driver;
    return driver;
}

const AudioDriver& Mp3Driver() {
    static const Mp3 driver;
    return driver;
}

const AudioDriver& VorbisDriver() {
    static const Vorbis driver;
    return driver;
}

} // namespace Kestra::FF
