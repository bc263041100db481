// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::DiscontinuityScan: reads a file through in search of timestamps that restart or jump.
#pragma once

#include "Kestra/FF/Demux/Demuxer.h"
#include "Kestra/FF/Demux/TimestampMap.h"
#include <functional>
#include <vector>

namespace Kestra::FF {

/// A jump counts when every stream that goes on makes it: what only one of them does is that stream's own trouble.
/// The parts are joined so that the leading stream has neither gap nor overlap. The others keep their distance to it,
/// but follow on to the sample where that is a matter of a few milliseconds.
class DiscontinuityScan {
public:
    /// Where parts were joined.
    struct Joint {
        std::int64_t time = 0; ///< on the leading stream's joined clock; engine time
        std::int64_t jump = 0; ///< by how much its timestamps were off; engine time
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
        std::int64_t position = 0;
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
        std::int64_t frameLength = 0;
        bool video = false;
        bool untimed = false;      ///< some packets have no presentation time
        std::int64_t position = 0; ///< of the last packet
        std::vector<Part> parts;
        std::vector<Entry> entries;
        std::vector<std::int64_t> shifts; ///< of the parts that have been joined

        bool IsOpen() const { return shifts.size() < parts.size(); }
        const Part& Next() const { return parts[shifts.size()]; }
        std::int64_t NextJump() const;
        std::int64_t JoinedEnd() const { return parts[shifts.size() - 1].end + shifts.back(); }
    };

    static void Take(Stream& stream, const AVPacket& packet);
    static void AddEntry(Stream& stream, const AVPacket& packet);
    static bool IsJump(const Stream& stream, std::int64_t time);
    static bool AreTheSame(const Stream& leader, const Stream& follower);
    void JoinParts();
    void JoinBoth(Stream& leader, Stream& follower);
    void JoinOne(Stream& stream, const Stream& other);
    /// Answers with the shift.
    std::int64_t JoinNext(Stream& stream);
    void FillMap();

    Demuxer& demuxer;
    std::vector<Stream> streams;
    TimestampMap map;
    std::vector<Joint> joints;
};

} // namespace Kestra::FF
