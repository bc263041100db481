// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::Decoder: packets of one stream into frames. The one send and receive loop of decoding.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/MediaLimits.h"
#include <functional>
#include <string>

namespace Kestra::FF {

/// Bound to one thread at a time.
class Decoder {
public:
    /// Fills the packet with the next one of the stream; false at the end.
    using PacketSupply = std::function<bool(AVPacket&)>;
    /// Told of a packet that could not be decoded, with its timestamp (AV_NOPTS_VALUE when it has none) and the reason.
    using DamageReceiver = std::function<void(std::int64_t timestamp, const std::string& reason)>;

    /// Opens the stream's codec with that many threads. `path` is for messages. Throws ProcException (CodecNotFound,
    /// SourceUnreadable). Frames that take more than `limits` allow cannot be decoded.
    Decoder(const AVStream& stream, int threads, const std::string& path, const Proc::MediaLimits& limits);
    ~Decoder();

    void SetPacketSupply(PacketSupply supply) { packetSupply = std::move(supply); }
    void SetDamageReceiver(DamageReceiver receiver) { damageReceiver = std::move(receiver); }

    /// The next frame in presentation order; null after the last one has been drained.
    FrameHandle Next();
    /// Forgets everything taken in: to be called after the supply has moved elsewhere.
    void Flush();
    /// Whether frames that no other one refers to are passed over, from the next packet on.
    void SkipUnreferenced(bool skip);
    /// Whether blocks stay unsmoothed, from the next packet on: sooner done, and further from what was encoded with
    /// each frame up to the next keyframe.
    void SkipLoopFilter(bool skip);
    /// From now on frames come with all that is told about them, but what their pixels show is of no account.
    void SkipPixels();

    const AVCodecContext& GetContext() const { return *context; }
    /// The first frame that took more than the limits allow, in words that go on after the file's name; empty when
    /// there was none.
    std::string GetExcess() const;

    /// The codec for a stream, null when there is none. VP8 and VP9 that carry alpha go to the decoder that reads it.
    static const AVCodec* FindCodec(const AVStream& stream);

private:
    void Feed();
    static int GetBuffer(AVCodecContext* context, AVFrame* frame, int flags);

    struct Bound;
    std::unique_ptr<Bound> bound; ///< at one place: decoding threads look there
    CodecContextHandle context;
    PacketHandle packet;
    PacketSupply packetSupply;
    DamageReceiver damageReceiver;
    bool draining = false;
};

} // namespace Kestra::FF
