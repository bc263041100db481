// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FirstFrames: decodes the first frame of each track of a file.
#pragma once

#include "Kestra/FF/Decode/Decoder.h"
#include "Kestra/FF/Demux/Demuxer.h"
#include "Kestra/FF/Probe/ProbedTrack.h"
#include <map>
#include <string>

namespace Kestra::FF {

class FirstFrames {
public:
    /// The demuxer and the tracks are borrowed; the demuxer stands at the start, and gives packets of these tracks.
    FirstFrames(Demuxer& demuxer, ProbedTrack& video, ProbedTrack& audio);

    /// Fills in the track's first frame, without what its pixels show, and when it is shown. Returns why that cannot be
    /// done, or nothing. May leave packets of both tracks waiting. One that begins late is sought among what the other
    /// has meanwhile, which is no longer kept then.
    std::string Decode(ProbedTrack& track);
    /// Whether the file holds nothing of the track: it was looked through, and only announces it.
    bool IsEmpty(const ProbedTrack& track) const;
    /// Takes in when pictures begin that have been read from the file already, which costs no reading.
    void TakeBufferedTimes();

private:
    FrameHandle DecodeWith(Decoder& decoder, ProbedTrack& track);
    bool BeginsWithFirstShown(ProbedTrack& track);
    static FrameHandle DecodeAlone(Decoder& decoder, const AVPacket& packet);
    bool ReadOn(const ProbedTrack& track);
    std::size_t BoundOf(const ProbedTrack& track) const;
    void Keep(PacketHandle packet, bool waits);
    std::string WhyMissing(const ProbedTrack& track) const;

    Demuxer& demuxer;
    ProbedTrack& video;
    ProbedTrack& audio;
    std::size_t bytesRead = 0;
    std::map<int, std::size_t> foundAt;         ///< of each track's first packet, what had been read before it
    std::int64_t lastDecodeTime = TIME_UNKNOWN; ///< of the pictures
};

} // namespace Kestra::FF
