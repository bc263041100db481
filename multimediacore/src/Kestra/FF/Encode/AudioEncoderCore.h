// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::AudioEncoderCore: packets from samples.
#pragma once

#include "Kestra/FF/Data/SampleQueue.h"
#include "Kestra/FF/Encode/AudioDriver.h"
#include "Kestra/FF/Encode/AudioEncoderChoice.h"
#include "Kestra/FF/Encode/ChunkEncoder.h"
#include "Kestra/FF/Encode/ChunkWorkers.h"
#include "Kestra/FF/Encode/EncoderCore.h"
#include "Kestra/Proc/IStreamAudio.h"

namespace Kestra::FF {

/// Packets for round(duration x rate) samples. The first sample has time 0; what the codec puts before it has negative
/// times, what it adds after the last is trimmed off the last packet.
///
/// Where the codec permits, parts of sound that is alone are encoded at a time, on as many threads as there are
/// processors; the packets do not depend on how many. Beside other tracks, whose encoders keep the processors busy, one
/// encoder makes them all, without the seams of parts.
///
/// Further tracks of the stream have encoders of their own, with the same description and settings.
class AudioEncoderCore final : public EncoderCore {
public:
    /// Int64, in the description, for tests: so many threads instead (0: all by one encoder), and about so many samples
    /// in a chunk.
    static constexpr const char* TAG_WORKERS = "workers";
    static constexpr const char* TAG_CHUNK_SAMPLES = "chunkSamples";

    /// Throws ProcException (CodecNotFound).
    AudioEncoderCore(const boost::intrusive_ptr<Proc::IStreamAudio>& stream, const Core::Property& description);

    void Initialize(const Core::Property& settings) override;
    void GetFormat(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override { return position; }
    /// Encodes only [start, end) and what a decoder needs around it, one packet beginning at `start`, whatever the
    /// codec. The times of the packets stay those of the whole stream.
    void AlignTo(std::int64_t start, std::int64_t end) override;
    void RunBesideOthers() override { besideOthers = true; }
    std::string Describe() const override;
    std::vector<boost::intrusive_ptr<Proc::IPacketSource>> GetFurtherTracks() const override;

protected:
    std::unique_ptr<IEncoderLoop> Open() override;
    FrameHandle NextFrame() override;
    boost::intrusive_ptr<Proc::IDataRaw> Finish(PacketHandle packet) override;
    void InterruptSource() override;
    void ResetSource() override;

private:
    boost::intrusive_ptr<Conf::IFormatCodecAudio> MakeDescription() const;
    void BuildChain(const Conf::IFormatCodecAudio& description);
    std::int64_t Surroundings(const AVCodecContext& context) const;
    void ChooseWindow(const AVCodecContext& context);
    void SkipToFirst();
    std::unique_ptr<IEncoderLoop> InChunks(std::unique_ptr<IEncoderLoop> model, const ChunkRule& rule,
                                           ChunkEncoder::OpenOne open);
    int CountWorkers() const;
    std::optional<ChunkRule> ChooseChunks(const AVCodecContext& context) const;
    int FrameSize() const;
    int TailSize() const;
    const AudioDriver& Driver() const { return AudioDriver::Of(*codec); }
    bool ReadOn();

    const boost::intrusive_ptr<Proc::IStreamAudio> stream;
    std::vector<boost::intrusive_ptr<AudioEncoderCore>> further; ///< a track each
    const AVCodec* codec;
    boost::intrusive_ptr<Proc::IStreamAudio> chain;
    AudioDriver::PacketLength lengthOf;
    EncodeSamples samples;
    SampleQueue queue;
    const std::shared_ptr<ChunkWorkers> workers = std::make_shared<ChunkWorkers>();
    bool besideOthers = false;
    std::int64_t alignStart = 0;
    std::int64_t alignEnd = INT64_MAX;
    std::int64_t firstSample = 0;
    int packets = 0;         ///< given
    std::int64_t total = -1; ///< samples to be encoded; -1: as many as come
    std::int64_t sent = 0;   ///< of these
    std::int64_t fed = 0;    ///< with the silence behind them
    std::int64_t position = 0;
    bool sourceEnded = false;
};

} // namespace Kestra::FF
