// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SubtitleReader: the text tracks of a media file.
#pragma once

#include "Kestra/Conf/Subtitles.h"
#include "Kestra/FF/Demux/Demuxer.h"
#include "Kestra/FF/Probe/TrackDetails.h"
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace Kestra::FF {

/// Reads the file from its start to its end. One thread.
class SubtitleReader {
public:
    /// Borrows `interrupted` and `details` for life. The tracks are subtitles of text, by their index.
    SubtitleReader(const ioPath& path, const TrackDetails& details, const std::vector<int>& tracks,
                   const std::atomic<bool>& interrupted);

    /// Once. Throws ProcException, and Interrupted.
    void Run();
    /// A track each, in the order in which they were asked for; once.
    std::vector<Conf::Subtitles> Take();
    /// What could not be read as it is, one phrase a track and kind of trouble.
    const std::vector<std::string>& GetTroubles() const { return troubles; }

private:
    struct Track {
        AVStream* stream = nullptr;
        CodecContextHandle decoder;
        Conf::Subtitles read;
        int unread = 0;   ///< packets that no text could be made of
        int repaired = 0; ///< packets that were no UTF-8
        int placed = 0;   ///< packets whose place on the picture no decoder gives
        int spoken = 0;   ///< packets with speakers or classes, which none gives either
        int foreign = 0;  ///< packets with tags that WebVTT has not
        int tooLong = 0;
        int tooMany = 0;
        std::vector<std::size_t> open; ///< cues of which it is not known when they end
    };

    void OpenTrack(int index);
    Track* Find(int index);
    void Decode(Track& track, AVPacket& packet);
    /// Makes the text what the decoder takes as it is meant. Returns the character that stands for "<" there, or 0.
    static char Prepare(Track& track, AVPacket& packet);
    static void CountUndecoded(Track& track, const AVPacket& packet);
    void Add(Track& track, const AVPacket& packet, const AVSubtitle& subtitle, char standIn);
    void CloseOpen(Track& track, std::int64_t time);
    void Finish(Track& track);
    void Tell(const Track& track, int count, const char* what);

    const std::atomic<bool>& interrupted;
    const TrackDetails& details;
    Demuxer demuxer;
    std::vector<Track> tracks;
    std::vector<std::string> troubles;
};

} // namespace Kestra::FF
