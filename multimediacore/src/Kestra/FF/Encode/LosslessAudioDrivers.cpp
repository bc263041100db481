// SPDX-License-Identifier: GPL-3.0-or-later
// Encoders whose samples come out as they went in: FLAC, ALAC, PCM.
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Encode/AudioDrivers.h"
#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/FF/Encode/FlacJoiner.h"
#include <algorithm>

namespace Kestra::FF {

namespace {

class LosslessDriver : public AudioDriver {
public:
    using AudioDriver::AudioDriver;

    bool KeepsSamples() const final { return true; }
};

class PackedDriver : public LosslessDriver {
public:
    using LosslessDriver::LosslessDriver;

    int BitsKept(const AVCodec&, AVSampleFormat format) const override {
        return std::min(8 * av_get_bytes_per_sample(format), DEEPEST);
    }
    void Settle(AVCodecContext& context) const override {
        if (av_get_packed_sample_fmt(context.sample_fmt) == AV_SAMPLE_FMT_S32)
            context.bits_per_raw_sample = DEEPEST;
    }
    // The last packet holds no more than is left.
    PacketLength LengthsOf(const AVCodecContext&) const override {
        return [](const AVPacket& packet) { return packet.duration; };
    }
    std::optional<ChunkRule> ChunksOf(const AVCodecContext&) const override { return ChunkRule{0, 0, true}; }

private:
    static constexpr int DEEPEST = 24;
};

class Flac final : public PackedDriver {
public:
    Flac()
        : PackedDriver(Conf::CodecID::FLAC, "flac") {}

    std::uint32_t LayoutFor(const AVCodec& own, std::uint32_t wanted) const override {
        constexpr int most = 8;
        if (Conf::CountChannels(wanted) > most)
            RefuseLayout(own, wanted, "it holds 8 at most");
        return PackedDriver::LayoutFor(own, wanted);
    }
    std::shared_ptr<PacketJoiner> MakeJoiner(const AVCodecContext&) const override {
        return std::make_shared<FlacJoiner>();
    }
};

class Alac final : public PackedDriver {
public:
    Alac()
        : PackedDriver(Conf::CodecID::ALAC, "alac") {}
};

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
    constexpr int wholeFloat = 32;
    constexpr int wholeDouble = 64;
    const AVSampleFormat packed = av_get_packed_sample_fmt(format);
    if (packed == AV_SAMPLE_FMT_FLT && bits == wholeFloat)
        return AV_CODEC_ID_PCM_F32LE;
    if (packed == AV_SAMPLE_FMT_DBL && bits == wholeDouble)
        return AV_CODEC_ID_PCM_F64LE;
    return bits > 0 ? PcmOfBits(bits) : AV_CODEC_ID_PCM_S16LE;
}

class Pcm final : public LosslessDriver {
public:
    Pcm()
        : LosslessDriver(Conf::CodecID::PCM, nullptr) {}

    bool Drives(const AVCodec& other) const override {
        return other.id >= AV_CODEC_ID_FIRST_AUDIO && other.id < AV_CODEC_ID_ADPCM_IMA_QT;
    }
    const AVCodec& EncoderFor(const AVCodec& own, Conf::CodecID id, AVSampleFormat format, int bits) const override {
        const AVCodec* const found = id == Conf::CodecID::PCM ? avcodec_find_encoder(PcmFor(format, bits)) : nullptr;
        return found ? *found : own;
    }
    // Speakers may stay unknown; a header of WAV has room for the first 18.
    std::uint32_t LayoutFor(const AVCodec&, std::uint32_t wanted) const override {
        constexpr int speakersOfWav = 18;
        return Conf::SpeakersOf(wanted) >> speakersOfWav == 0 ? wanted
                                                              : Conf::DiscreteLayout(Conf::CountChannels(wanted));
    }
    int BitsKept(const AVCodec& own, AVSampleFormat) const override { return av_get_exact_bits_per_sample(own.id); }
};

} // namespace

const AudioDriver& FlacDriver() {
    static const auto& driver = *new Flac;
    return driver;
}

const AudioDriver& AlacDriver() {
    static const auto& driver = *new Alac;
    return driver;
}

const AudioDriver& PcmDriver() {
    static const auto& driver = *new Pcm;
    return driver;
}

} // namespace Kestra::FF
