// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::AudioDriver: what is particular to one of the codec library's encoders of audio.
#pragma once

#include "Kestra/Conf/CodecID.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/FF/Encode/ChunkRule.h"
#include "Kestra/FF/Encode/PacketJoiner.h"
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Kestra::FF {

/// Has no state and lives as long as the process: any thread may use it. What is not overridden is what most encoders
/// do: lossy ones whose packets hold a fixed number of samples. A new encoder is one more driver, in AudioDrivers.cpp's
/// list.
class AudioDriver {
public:
    /// How many samples a decoder makes of a packet that is not empty; packets are asked for in their order.
    using PacketLength = std::function<std::int64_t(const AVPacket& packet)>;

    /// `encoder` is the codec library's name for it; null where several encoders are driven alike.
    AudioDriver(Conf::CodecID codec, const char* encoder)
        : codec(codec)
        , encoder(encoder) {}
    virtual ~AudioDriver() = default;
    AudioDriver(const AudioDriver&) = delete;
    AudioDriver& operator=(const AudioDriver&) = delete;

    static const std::vector<const AudioDriver*>& All();
    /// One that does what most do, where no other drives the encoder.
    static const AudioDriver& Of(const AVCodec& encoder);

    Conf::CodecID GetCodec() const { return codec; }
    const char* GetEncoder() const { return encoder; }
    virtual bool Drives(const AVCodec& other) const;

    /// The encoder for samples of that format and so many bits: `own`, or another one of the codec, which is `id`.
    virtual const AVCodec& EncoderFor(const AVCodec& own, Conf::CodecID id, AVSampleFormat format, int bits) const;
    /// The layout that is nearest to `wanted`, which is known, of as many channels or fewer. Throws ProcException
    /// (CodecRefused) for more channels than the codec holds, and for channels without speakers where it needs these.
    virtual std::uint32_t LayoutFor(const AVCodec& own, std::uint32_t wanted) const;
    /// How many bits of each sample come out as they went in; 0 when the codec is lossy.
    virtual int BitsKept(const AVCodec& own, AVSampleFormat format) const;
    /// Whether samples come out as they went in, so that there are no bits to choose.
    virtual bool KeepsSamples() const { return false; }
    /// For a context with its bitrate: what else that takes. The mode is "abr", "vbr", "cbr" or empty.
    virtual void SetMode(AVCodecContext& context, const std::string& mode) const;
    /// What the context says beside rate, layout and format.
    virtual void Settle(AVCodecContext& context) const;
    /// Whether all packets but the last hold as many samples.
    virtual bool HasFixedPackets() const { return true; }
    /// Of an open context, which outlives the answer.
    virtual PacketLength LengthsOf(const AVCodecContext& context) const;
    /// Fewer packets are no file to its readers.
    virtual int LeastPackets() const { return 0; }
    /// How what the open context encodes may be encoded in parts; nothing where packets hang together.
    virtual std::optional<ChunkRule> ChunksOf(const AVCodecContext&) const { return std::nullopt; }
    /// The context's quality while an encoder opens that begins within the sound; then it is what it was before.
    virtual int QualityToBeginWith(const AVCodecContext& context) const { return context.global_quality; }
    /// For one track in such parts.
    virtual std::shared_ptr<PacketJoiner> MakeJoiner(const AVCodecContext& context) const;

private:
    const Conf::CodecID codec;
    const char* const encoder;
};

} // namespace Kestra::FF
