// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::AudioDecodeStream: the audio of a media file.
#pragma once

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Decode/AudioDrift.h"
#include "Kestra/FF/Decode/Decoder.h"
#include "Kestra/FF/Decode/SampleNormaliser.h"
#include "Kestra/FF/Demux/Demuxer.h"
#include "Kestra/FF/Source/MediaSource.h"
#include "Kestra/Proc/Filters/StreamBase.h"
#include <atomic>
#include <deque>
#include <optional>

namespace Kestra::FF {

/// Delivers what the file holds. Opens a file of its own at the first read. Seeks take effect at the next read, which
/// begins at the very sample. Yields exactly as many samples as its duration holds. Samples follow each other whatever
/// small differences their timestamps show; only a gap that lasts becomes silence.
class AudioDecodeStream final : public Proc::StreamBase<Proc::IStreamAudio> {
public:
    explicit AudioDecodeStream(boost::intrusive_ptr<MediaSource> source);
    ~AudioDecodeStream() override;

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override;
    std::int64_t GetDuration() const override { return duration; }
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override { interrupted = true; }
    std::string Describe() const override;
    void Prepare() override;
    void Reset() override;

private:
    void Open();
    boost::intrusive_ptr<Proc::IDataAudio> ReadOn();
    struct Block {
        FrameHandle frame;
        std::int64_t place = 0; ///< by its timestamp; in samples
    };

    void OpenDecoder(Demuxer& file);
    bool SupplyPacket(AVPacket& packet);
    std::int64_t TimeOf(std::int64_t timestamp) const;
    void OnDamage(std::int64_t timestamp, const std::string& reason);
    bool DecodeBlock();
    void Keep(FrameHandle samples, std::int64_t place);
    void ForgetBlocks();
    void LookAhead(std::size_t blocks, std::int64_t samples);
    void LookAheadToAnchor();
    std::int64_t PlaceOf(const AVFrame& frame);
    std::int64_t EndOfBlocks() const;
    std::vector<TimedBlock> Timings() const;
    std::int64_t NextPlace();
    void PlaceFront();
    void FollowDrift();
    void TellGap(std::int64_t length);
    void TellChange(const AVFrame& frame);
    boost::intrusive_ptr<Proc::IDataAudio> TakeFront();
    boost::intrusive_ptr<Proc::IDataAudio> Silence(std::int64_t until);
    boost::intrusive_ptr<Proc::IDataAudio> Emit(FrameHandle frame, std::int64_t from);
    bool IsReadThrough() const;
    void ApplySeek();
    bool LandBefore(std::int64_t sample, std::int64_t preroll);
    void StartOver();
    std::int64_t Rounding() const;

    const boost::intrusive_ptr<MediaSource> source;
    const Proc::AudioTrackInfo track;
    const std::int64_t duration;
    const std::int64_t total; ///< samples
    std::atomic<bool> interrupted{false};
    std::unique_ptr<Demuxer> demuxer;
    std::unique_ptr<Decoder> decoder;
    std::unique_ptr<SampleNormaliser> normaliser;

    std::unique_ptr<AudioDrift> drift;

    std::deque<Block> blocks;          ///< decoded ahead, so that jitter can be told from a gap
    std::int64_t decodedAhead = 0;     ///< samples in them
    std::optional<std::int64_t> front; ///< where the first of them has been placed
    std::int64_t flow = 0;             ///< where the next block begins if it follows on
    std::int64_t cursor = 0;           ///< the next sample to be read
    std::optional<std::int64_t> pendingSeek;
    std::int64_t lastDamage = TIME_UNKNOWN; ///< where the file was last found damaged; engine time
    int gapsTold = 0;
    bool anchored = false; ///< flow is known
    bool drained = false;
    bool settling = false; ///< what is decoded lies before the target of a seek
};

} // namespace Kestra::FF
