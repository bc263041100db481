// SPDX-License-Identifier: GPL-3.0-or-later
// Encoders that choose what to leave out: AAC, Opus, AC-3, MP3, Vorbis.
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

std::int64_t OptionOf(const AVCodecContext& context, const char* name) {
    std::int64_t value = 0;
    return av_opt_get_int(context.priv_data, name, 0, &value) < 0 ? 0 : value;
}

class Aac final : public AudioDriver {
public:
    Aac()
        : AudioDriver(Conf::CodecID::AAC, "aac") {}

    // A decoder keeps nothing of earlier packets but half of a window, unless they predict.
    std::optional<ChunkRule> ChunksOf(const AVCodecContext& context) const override {
        if (OptionOf(context, "aac_pred") != 0 || OptionOf(context, "aac_ltp") != 0)
            return std::nullopt;
        return ChunkRule{8, 1, false};
    }
    // Its rate control begins far below where it stays, and takes seconds to climb there. From above, where this puts
    // it, it falls within some packets.
    int QualityToBeginWith(const AVCodecContext& context) const override {
        constexpr int highest = 1 << 16;
        return (context.flags & AV_CODEC_FLAG_QSCALE) != 0 ? context.global_quality : highest;
    }
};

class Opus final : public AudioDriver {
public:
    Opus()
        : AudioDriver(Conf::CodecID::Opus, "libopus") {}

    // Packets of its transform tell energies by those before, and after some twenty of them its encoders agree on
    // these. Its coder for speech does not come together: such a seam can be heard. Where the bitrate leaves no doubt
    // that it is not used, there are chunks.
    std::optional<ChunkRule> ChunksOf(const AVCodecContext& context) const override {
        constexpr int leadInMs = 480;
        if (MayCodeSpeech(context))
            return std::nullopt;
        return ChunkRule{context.sample_rate * leadInMs / 1000 / context.frame_size, 1, false};
    }
    void SetMode(AVCodecContext& context, const std::string& mode) const override {
        Check(av_opt_set(context.priv_data, "vbr", mode == "cbr" ? "off" : "on", 0), TranscodingError::CodecRefused,
              "vbr");
    }

private:
    static bool MayCodeSpeech(const AVCodecContext& context) {
        constexpr std::int64_t voip = 2048;
        constexpr std::int64_t surelyMusic = 80000;
        const std::int64_t streams = context.ch_layout.nb_channels > 2 ? context.ch_layout.nb_channels : 1;
        return context.bit_rate < surelyMusic * streams || OptionOf(context, "application") == voip ||
               OptionOf(context, "fec") != 0 || OptionOf(context, "dtx") != 0;
    }
};

class Ac3 final : public AudioDriver {
public:
    Ac3()
        : AudioDriver(Conf::CodecID::AC3, "ac3") {}

    // Nothing but the half of a window leads from packet to packet.
    std::optional<ChunkRule> ChunksOf(const AVCodecContext&) const override { return ChunkRule{1, 0, false}; }
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
    static const auto& driver = *new Aac;
    return driver;
}

const AudioDriver& OpusDriver() {
    static const auto& driver = *new Opus;
    return driver;
}

const AudioDriver& Ac3Driver() {
    static const auto& driver = *new Ac3;
    return driver;
}

const AudioDriver& Mp3Driver() {
    static const auto& driver = *new Mp3;
    return driver;
}

const AudioDriver& VorbisDriver() {
    static const auto& driver = *new Vorbis;
    return driver;
}

} // namespace Kestra::FF
