// Kestra::FF::FirstFrames: decodes the first frame of each track of a file.
#pragma once

#include "Kestra/FF/Decoder.h"
#include "Kestra/FF/Demuxer.h"
#include "Kestra/FF/ProbedTrack.h"
#include <string>

namespace Kestra::FF {

class FirstFrames {
public:
    /// The demuxer and the tracks are borrowed; the demuxer stands at the start, and gives packets of these tracks.
    FirstFrames(Demuxer& demuxer, ProbedTrack& video, ProbedTrack& audio);

    /// Fills in the track's first frame, without what its pixels show, and when it is shown. Returns why that cannot be
    /// done, or nothing. May leave packets of both tracks waiting.
    std::string Decode(ProbedTrack& track);
    /// Takes in when pictures begin that have been read from the file already, which costs no reading.
    void TakeBufferedTimes();

private:
    FrameHandle DecodeWith(Decoder& decoder, ProbedTrack& track);
    bool BeginsWithFirstShown(ProbedTrack& track);
    static FrameHandle DecodeAlone(Decoder& decoder, const AVPacket& packet);
    bool ReadOn(const ProbedTrack& track);
    void Keep(PacketHandle packet);

    Demuxer& demuxer;
    ProbedTrack& video;
    ProbedTrack& audio;
    std::size_t bytesRead = 0;
    std::int64_t lastDecodeTime = TIME_UNKNOWN; ///< of the pictures
};

} // namespace Kestra::FF
