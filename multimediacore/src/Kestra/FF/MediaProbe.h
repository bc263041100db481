// Kestra::FF::MediaProbe: finds out what a media file holds.
#pragma once

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Demuxer.h"
#include "Kestra/FF/TrackDetails.h"
#include <deque>

namespace Kestra::FF {

/// Decodes the first frame of the main tracks and reads the file's last packets, so that start, shape and length are
/// what reading will yield and not what a header claims.
class MediaProbe {
public:
    /// `interrupted` is borrowed for life.
    MediaProbe(const ioPath& path, const std::atomic<bool>& interrupted);

    /// Once. Throws ProcException (SourceUnreadable) when there is neither picture nor sound, or when interrupted.
    void Run();

    const Proc::MediaInfo& GetInfo() const { return info; }
    const TrackDetails& GetDetails() const { return details; }

private:
    /// Times are engine time on the container's own clock.
    struct Track {
        int index = -1;
        FrameHandle first;
        std::deque<PacketHandle> waiting; ///< read, not yet decoded
        std::int64_t firstDecodeTime = TIME_UNKNOWN;
        std::int64_t start = TIME_UNKNOWN;
        std::int64_t end = TIME_UNKNOWN;
        std::int64_t lastLength = 0; ///< of the packet that ends last
        bool untimed = false;        ///< some packets have no presentation time
        bool guessed = false;        ///< that packet does not say how long it lasts
        std::int64_t packets = 0;
        int frameSize = 0; ///< samples of a whole block
    };

    void RequireTracks() const;
    void ChooseTracks();
    void CountTrack(const AVStream& stream);
    void DecodeFirstFrames();
    void DecodeFirst(Track& track);
    bool Supply(Track& track, AVPacket& packet);
    static bool TakeWaiting(Track& track, AVPacket& packet);
    static void KeepTail(Track& track, const AVPacket& packet);
    void DecodeTail(Track& track);
    void Drop(Track& track, const std::string& reason);
    void SettleOrigin();
    /// Of recordings that were put behind each other, the parts are joined.
    void JoinClocks();
    void FindEnds();
    bool FindEndNear(Track& track, std::int64_t window);
    void ScanToEnd(const std::vector<Track*>& tracks);
    void ReadEnds();
    void TakePacket(Track& track, const AVPacket& packet);
    std::int64_t TimeOf(Track& track, const AVPacket& packet);
    std::int64_t LengthOf(const Track& track, const AVPacket& packet);
    void FinishEnd(Track& track);
    /// An edit list may cut the last frame or block short.
    void FitToEditList(Track& track, bool isAudio);
    void DescribeVideo();
    void DescribeAudio();
    void ReportShortage();
    std::int64_t ClaimedEnd(const Track& track);
    std::vector<Track*> Tracks();

    ioPath path;
    const std::atomic<bool>& interrupted;
    Demuxer demuxer;
    Track video;
    Track audio;
    std::size_t bytesRead = 0;
    Proc::MediaInfo info;
    TrackDetails details;
};

} // namespace Kestra::FF
