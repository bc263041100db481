// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::DiscontinuityScan: reads a file through in search of timestamps that restart or jump.
#pragma once

#include "Kestra/FF/Demux/Demuxer.h"
#include "Kestra/FF/Demux/TimestampMap.h"
#include <functional>
#include <vector>

namespace Kestra::FF {

/// A jump counts when every stream that goes on makes it: what only one of them does is that stream's own trouble.
/// The parts are joined so that the leading stream has neither gap nor overlap. The other one keeps its distance to it,
/// but follows on to the sample where that is a matter of a few milliseconds; where it would overlap by more than can
/// be spared, the leading stream has a gap instead.
class DiscontinuityScan {
public:
    /// Where parts were joined.
    struct Joint {
        std::int64_t time = 0; ///< on the leading stream's joined clock; engine time
        std::int64_t jump = 0; ///< by how much its timestamps were off; engine time
        std::int64_t gap = 0;  ///< of the leading stream, in which the other one goes on; engine time
    };

    /// The demuxer is borrowed. The first of `streams`, at most two, leads.
    DiscontinuityScan(Demuxer& demuxer, const std::vector<int>& streams);

    /// Whether timestamps of such files may restart at all.
    static bool IsNeeded(Demuxer& demuxer);
    /// Once. Shows every packet to `look`. Leaves the demuxer somewhere in the file.
    void Run(const std::function<void(const AVPacket&)>& look);

    const TimestampMap& GetMap() const { return map; }
    const std::vector<Joint>& GetJoints() const { return joints; }

private:
    /// Packets whose timestamps go on from each other. In ticks of the stream, as the file has them.
    struct Part {
        std::int64_t position = 0;      ///< of the first packet in the file
        std::int64_t lastPosition = 0;  ///< of the last one
        std::int64_t begin = INT64_MAX; ///< of the earliest presentation
        std::int64_t end = INT64_MIN;   ///< of the latest
        std::int64_t first = 0;         ///< the time of the first packet in the file
        std::int64_t last = 0;          ///< the time after the last one
        std::int64_t delay = 0;         ///< from decoding to presentation, of the first packet
    };
    struct Entry {
        std::int64_t position = 0;
        std::int64_t time = 0;
        std::size_t part = 0;
    };
    struct Stream {
        int index = -1;
        AVCodecID codec = AV_CODEC_ID_NONE;
        AVRational timeBase = {0, 1};
        int clockBits = 0; ///< of its timestamps in the file
        std::int64_t frameLength = 0;
        bool video = false;
        bool untimed = false;      ///< some packets have no presentation time
        std::int64_t position = 0; ///< of the last packet
        std::vector<Part> parts;
        std::vector<Entry> entries;
        std::vector<std::int64_t> shifts; ///< of the parts that have been joined

        bool IsOpen() const { return shifts.size() < parts.size(); }
        const Part& Current() const { return parts[shifts.size() - 1]; }
        const Part& Next() const { return parts[shifts.size()]; }
        std::int64_t NextJump() const;
        std::int64_t JoinedEnd() const { return parts[shifts.size() - 1].end + shifts.back(); }
    };

    static void Take(Stream& stream, const AVPacket& packet);
    static void AddEntry(Stream& stream, const AVPacket& packet);
    static bool IsJump(const Stream& stream, std::int64_t time);
    static bool IsJumpOfBoth(const Stream& first, const Stream& second);
    static bool AreNear(const Stream& first, const Stream& second);
    static bool JumpsAgainMeanwhile(const Stream& first, const Stream& second);
    void JoinParts();
    void JoinBoth(Stream& leader, Stream& follower);
    /// Moves the part of the leading stream that was joined last behind what the follower still has before it.
    void MakeRoom(Stream& leader, const Stream& follower);
    void JoinOne(Stream& stream, const Stream& other);
    void JoinNext(Stream& stream);
    void FillMap();

    Demuxer& demuxer;
    std::vector<Stream> streams;
    TimestampMap map;
    std::vector<Joint> joints;
};

} // namespace Kestra::FF
