// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::VideoDecodeStream: the frames of a media file.
#pragma once

#include "Kestra/FF/Decode/Decoder.h"
#include "Kestra/FF/Demux/Demuxer.h"
#include "Kestra/FF/Picture/Deinterlacer.h"
#include "Kestra/FF/Picture/FrameRotator.h"
#include "Kestra/FF/Source/KeyframeList.h"
#include "Kestra/FF/Source/MediaSource.h"
#include "Kestra/Proc/Filters/StreamBase.h"
#include <atomic>
#include <deque>
#include <optional>

namespace Kestra::FF {

/// Delivers what the file holds. Opens a file of its own at the first read. Seeks take effect at the next read. Each
/// frame keeps the time at which it begins, also the one that covers the target of a seek.
///
/// Interlaced frames stay as they are where nobody prefers progressive ones (TAG_INTERLACED) or they have to be
/// turned. Otherwise each becomes one progressive frame, or two, of which each shows a field, for a consumer of a
/// rate that shows them; frames that are progressive keep their pixels. For a draft they are decoded without their loop
/// filter.
class VideoDecodeStream final : public Proc::StreamBase<Proc::IStreamVideo> {
public:
    /// One of so many streams that are read at a time: IMediaSource::CreateVideoStreamAmong.
    VideoDecodeStream(boost::intrusive_ptr<MediaSource> source, int among);
    ~VideoDecodeStream() override;

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    std::int64_t GetDuration() const override { return duration; }
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override { interrupted = true; }
    std::string Describe() const override;
    /// Notes with the source what the consumer will change in its colour.
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Prepare() override;
    void Reset() override;

private:
    void Open();
    boost::intrusive_ptr<Proc::IDataVideo> ReadOn();
    /// A decoded frame and where it begins in the stream.
    struct Shown {
        FrameHandle frame;
        std::int64_t time = 0;
        std::int64_t ownTime = 0; ///< differs in the first frame, which is shown from the start
    };
    enum class Fields { Kept, OneFrame, FramePerField };
    struct SeekTarget {
        std::int64_t time = 0;
        Proc::SeekMode mode = Proc::SeekMode::Exact;
    };

    bool SupplyPacket(AVPacket& packet);
    bool PassesKeyGate(const AVPacket& packet);
    void ChooseSkipping(const AVPacket& packet);
    std::optional<Shown> DecodeNext();
    std::int64_t TimeOf(const AVFrame& frame);
    void ReportFlaws(const AVFrame& frame, std::int64_t time);
    void OnDamage(std::int64_t timestamp, const std::string& reason);
    void ApplySeek();
    bool IsShortlyAhead(std::int64_t time) const;
    void SeekBack(const SeekTarget& target, bool skipUnreferenced);
    bool LandBefore(std::int64_t time, std::int64_t distance);
    void StartOver();
    void ForgetFrames();
    void WindTo(std::int64_t time);
    void PreferFields(const Conf::IFormatCodecVideo& format);
    void PreferDraft(bool preferred);
    bool IsOriented() const { return track.rotation == 0 && !source->GetDetails().flipped; }
    std::vector<FrameHandle> ShowCurrent();
    std::vector<FrameHandle> Deinterlace();
    void Present();
    void NoteDynamicMetadata(const AVFrame& frame);
    void NoteSize(const AVFrame& frame);
    void Push(FrameHandle frame, std::int64_t begin, std::int64_t end);
    void FetchPrevious(const SeekTarget& target);
    std::int64_t LeadOf(std::int64_t time) const;

    const boost::intrusive_ptr<MediaSource> source;
    const int threads; ///< that decode
    const Proc::VideoTrackInfo track;
    const std::int64_t duration;
    std::atomic<bool> interrupted{false};
    std::unique_ptr<Demuxer> demuxer;
    std::unique_ptr<Decoder> decoder;
    std::unique_ptr<FrameRotator> rotator;
    std::unique_ptr<Deinterlacer> deinterlacer; ///< from the first interlaced frame on
    Fields fields = Fields::Kept;

    std::optional<Shown> previous; ///< decoded before `current`; only where fields are not kept
    std::optional<Shown> current;  ///< what the next read returns
    std::optional<Shown> next;     ///< its successor, which tells how long it lasts
    /// What came of frames before `current`, for the next reads.
    std::deque<boost::intrusive_ptr<Proc::IDataVideo>> ready;
    std::optional<SeekTarget> pendingSeek;
    bool sizeNoted = false;
    bool dynamicNoted = false;
    bool draft = false; ///< frames are looked at roughly
    std::int64_t position = 0;
    std::int64_t showFrom = 0;     ///< after a seek, what ends before is not shown
    std::int64_t lastDecoded = -1; ///< time of the last decoded frame; times have to rise
    bool atStart = true;           ///< no frame has been decoded since the start
    bool awaitsKey = false;        ///< after a seek, packets before the first keyframe cannot be decoded
    std::size_t keysToPass = 0;    ///< while awaiting: keyframes that are passed over too
    KeyframeList keyframes;        ///< only for containers that cannot be sought in
    bool winding = false;          ///< frames are decoded only to be dropped
    std::int64_t skipBefore = -1;  ///< unreferenced frames before this time are not even decoded
    std::int64_t skippedUpTo = -1; ///< the latest time among packets that were offered for skipping
};

} // namespace Kestra::FF
