// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/TrackRate.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Probe/TrackShape.h"

namespace Kestra::FF {

namespace {

// How much of a file with a variable rate is read to choose one: minutes of what telephones and screens record.
constexpr std::size_t SCAN_BYTES = std::size_t{64} << 20;

RateChooser MakeChooser(const FrameTimes& times, const AVStream& stream) {
    const bool usable = !times.AreIncomplete();
    return {usable ? times.Runs() : std::vector<std::vector<std::int64_t>>(), ToEngineTime(1, stream.time_base),
            NominalRate(stream)};
}

// What libav takes for the average where it counts fields is off by some.
RateChooser MakeChooserByLength(std::int64_t length) {
    return {{}, 0, RateChooser::Rate(TIME_BASE, length)};
}

FrameTimes ScanTimes(Demuxer& demuxer, int index) {
    FrameTimes times;
    const AVStream* stream = nullptr;
    const PacketHandle packet = MakePacket();
    std::size_t bytes = 0;
    std::int64_t decoded = TIME_UNKNOWN;
    demuxer.Select({index});
    demuxer.Rewind();
    while (bytes < SCAN_BYTES && demuxer.Read(*packet)) {
        stream = &demuxer.GetStream(index);
        times.Take(*packet, *stream);
        bytes += static_cast<std::size_t>(packet->size);
        decoded = ToEngineTime(packet->dts, stream->time_base);
    }
    if (bytes < SCAN_BYTES)
        times.SetWhole();
    else
        times.CutRun(decoded);
    return times;
}

} // namespace

TrackRate FindTrackRate(Demuxer& demuxer, const ProbedTrack& track) {
    AVStream& stream = demuxer.GetStream(track.index);
    if (track.times.AreIncomplete() && demuxer.HasFields(track.index) && track.lastLength > 0)
        return {MakeChooserByLength(track.lastLength).Choose(), true};
    FrameTimes times = track.times;
    times.MoveFirst(track.firstMoves);
    const RateChooser seen = MakeChooser(times, stream);
    if (track.times.AreWhole() || track.times.AreIncomplete())
        return {seen.Choose(), true};
    FrameTimes index;
    const bool listsFrames = !demuxer.HasFieldsApart(track.index) && track.firstMoves == 0;
    if (listsFrames && index.TakeIndex(stream)) {
        const RateChooser listed = MakeChooser(index, stream);
        // Even decoding times can hide uneven presentation.
        if (seen.IsSteady() || !listed.IsSteady())
            return {listed.Choose(), true};
    } else if (seen.IsSteady()) {
        return {seen.Choose(), false};
    }
    FrameTimes scanned = ScanTimes(demuxer, track.index);
    scanned.MoveFirst(track.firstMoves);
    return {MakeChooser(scanned, demuxer.GetStream(track.index)).Choose(), scanned.AreWhole()};
}

bool IsGuessedLength(std::int64_t length, const AVStream& stream) {
    const std::int64_t tick = ToEngineTime(1, stream.time_base);
    const auto isPeriod = [&](AVRational rate) {
        return rate.num > 0 && rate.den > 0 && std::abs(length - FramesToTime(1, FromAv(rate))) <= tick;
    };
    return isPeriod(stream.avg_frame_rate) || isPeriod(stream.r_frame_rate);
}

} // namespace Kestra::FF
