// SPDX-License-Identifier: GPL-3.0-or-later
// Finding out the frame rate of a track.
#pragma once

#include "Kestra/FF/Demux/Demuxer.h"
#include "Kestra/FF/Probe/ProbedTrack.h"
#include "Kestra/FF/Probe/RateChooser.h"

namespace Kestra::FF {

struct TrackRate {
    RateChoice choice;
    bool whole = false; ///< every picture of the track was looked at
};

/// By the times of the packets that the track has read, and by the container's index where that lists every picture.
/// Where these show that the rate is not constant and the index does not tell more, the file is read from its start, up
/// to a bound. The demuxer may be left anywhere.
TrackRate FindTrackRate(Demuxer& demuxer, const ProbedTrack& track);

/// Whether a picture may last that long only because the header's rate says so.
bool IsGuessedLength(std::int64_t length, const AVStream& stream);

} // namespace Kestra::FF
