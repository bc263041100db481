// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::MediaProbe: finds out what a media file holds.
#pragma once

#include "Kestra/Base/SourcePlace.h"
#include "Kestra/FF/Demux/Demuxer.h"
#include "Kestra/FF/Probe/AudioLevels.h"
#include "Kestra/FF/Probe/ChunkStart.h"
#include "Kestra/FF/Probe/DiscontinuityScan.h"
#include "Kestra/FF/Probe/MediaSpan.h"
#include "Kestra/FF/Probe/PacketSamples.h"
#include "Kestra/FF/Probe/ProbedTrack.h"
#include "Kestra/FF/Probe/RateChooser.h"
#include "Kestra/FF/Probe/TrackDetails.h"
#include "Kestra/Proc/TrackChoice.h"
#include <memory>

namespace Kestra::FF {

/// Decodes the first frame of the main tracks and reads the file's last packets, so that start, shape and length are
/// what reading will yield and not what a header claims.
class MediaProbe {
public:
    /// `interrupted` is borrowed for life.
    MediaProbe(const ioPath& path, const std::atomic<bool>& interrupted, const Proc::MediaLimits& limits,
               Proc::TrackChoice choice = {});

    /// Once. Throws ProcException (SourceUnreadable) when there is neither picture nor audio, when there is no track as
    /// chosen, or when interrupted.
    void Run();

    const Proc::MediaInfo& GetInfo() const { return info; }
    const TrackDetails& GetDetails() const { return details; }

private:
    using Track = ProbedTrack;
    /// A header that promises more than this beyond the last packet belongs to a file that was cut off.
    static constexpr std::int64_t SHORTAGE = TIME_BASE / 2;

    void RefuseInterrupted() const;
    void RequireTracks() const;
    void ChooseTracks();
    void ChooseAudio();
    [[noreturn]] void RefuseChoice(const std::string& reason, SourcePlace place = SourcePlace::Here()) const;
    void CountTrack(const AVStream& stream);
    void DecodeFirstFrames();
    static void KeepTail(Track& track, const AVPacket& packet);
    void DecodeTail(Track& track);
    void Drop(Track& track, const std::string& reason);
    void FindEarliestStart();
    void ChooseRate();
    void NoteRate();
    void SettleOrigin();
    /// Both answer with what has been added to the times of the audio.
    std::int64_t AlignChunkedTracks();
    std::int64_t AlignEdits();
    /// Where fragments let pictures and audio begin at their start.
    AudioStart AudioStartOf();
    std::int64_t AlignFragmentsFromStart(bool byLibav);
    void SettleAudioGrid();
    std::optional<VideoSpan> VideoSpanOf() const;
    std::optional<AudioSpan> AudioSpanOf();
    void SkipUndecodableLead();
    void NoteEdits();
    std::int64_t UneditedTimeOf(const AVPacket& packet, std::int64_t near);
    /// Of recordings that were put behind each other, the parts are joined.
    void JoinClocks();
    void ReportJoints();
    void FindEnds();
    void SettleEnds();
    bool FindEndNear(Track& track, std::int64_t window);
    void ScanToEnd(const std::vector<Track*>& tracks);
    void BeginLevels(bool ofAll);
    void ReadEnds();
    void TakePacket(Track& track, const AVPacket& packet);
    std::int64_t TimeOf(Track& track, const AVPacket& packet);
    std::int64_t LengthOf(const Track& track, const AVPacket& packet);
    /// Where timestamps of the audio jitter, its samples tell where it begins and ends.
    void SteadyAudio();
    void ReportLostAudio();
    void FinishEnd(Track& track);
    void FinishVideoEnd();
    /// An edit list may cut the last frame or block short.
    void FitToEditList(Track& track, bool isAudio);
    void DescribeVideo();
    void DescribeFields(Proc::VideoTrackInfo& track, AVFrame& first, const AVCodecParameters& parameters);
    void DescribeAudio();
    /// 0 where the file claims none.
    std::int64_t ClaimedLength();
    void ReportShortage();
    std::int64_t ClaimedEnd(const Track& track);
    /// The claim, but no more than the file's table of samples holds.
    std::int64_t PromisedEnd(const Track& track);
    std::vector<Track*> Tracks();

    ioPath path;
    const std::atomic<bool>& interrupted;
    const Proc::TrackChoice choice;
    Demuxer demuxer;
    Track video;
    Track audio;
    std::unique_ptr<PacketSamples> packetSamples;
    AudioLevels levels;
    std::int64_t audioEnd = 0; ///< of all that there is, also where it is not heard
    bool levelsOfAll = false;  ///< of the whole file, not only of its end
    RateChoice rate;
    bool rateOfAll = false; ///< of the pictures
    std::vector<DiscontinuityScan::Joint> joints;
    Proc::MediaInfo info;
    TrackDetails details;
};

} // namespace Kestra::FF
