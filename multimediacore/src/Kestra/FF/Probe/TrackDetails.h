// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::TrackDetails: what the streams of a media file need to know beyond its public description.
#pragma once

#include "Kestra/Conf/HdrInfo.h"
#include "Kestra/FF/Demux/StreamInfoCache.h"
#include "Kestra/FF/Demux/TimestampMap.h"
#include "Kestra/Proc/IMediaSource.h"
#include "Kestra/Proc/MediaLimits.h"
#include <memory>

namespace Kestra::FF {

struct TrackDetails {
    /// Engine time, on the container's own clock, of the instant that is 0 in every stream.
    std::int64_t origin = 0;
    /// The same for the audio, which is another one where the container does not tell how tracks belong together.
    std::int64_t audioOrigin = 0;
    /// After it has been turned, the picture is to be flipped upside down.
    bool flipped = false;
    /// False where the picture's colour is a guess.
    bool tellsColour = true;
    /// The brightest of a picture of high dynamic range, in cd/m2.
    double peak = 0;
    /// Of such a picture, too.
    Conf::HdrInfo hdr;
    /// Pictures are interlaced as the container says, having no flags of their own.
    bool fieldsByTrack = false;
    /// Engine time from the origin at which samples of the audio begin; before it, negative, they are not heard.
    std::int64_t audioStart = 0;
    /// Where, modulo the codec's frame length, blocks of samples end on the audio's own timeline: containers round
    /// timestamps, and after a seek this tells the sample that was meant.
    std::int64_t audioPhase = 0;
    /// Samples that every block is a multiple of; 0 when the codec has no such number.
    int audioGrain = 0;
    /// The grain is the habit of the container's writer: a longer block is none of that kind.
    bool grainOfContainer = false;
    /// By how many samples a timestamp of the audio differs from the one before beyond what lies between them, on
    /// average; 0 where they do not jitter.
    std::int64_t audioJitter = 0;
    /// The audio's times lead nowhere: its samples follow each other from the start.
    bool audioStandsStill = false;
    /// Saves the streams of the file from being found again; null where that does not work.
    std::shared_ptr<const StreamInfoCache> streams;
    /// How the file's timestamps are joined; null when they go on from start to end.
    std::shared_ptr<const TimestampMap> clock;
    /// The byte behind which a second file of the same kind begins; 0 where none does.
    std::int64_t end = 0;
    /// What the file may claim, whenever it is opened.
    Proc::MediaLimits limits;
    /// Damage seen while opening.
    std::vector<Proc::DamageReport> damage;
    /// Peculiarities seen while opening, each once: SourceNote::what.
    std::vector<std::string> notes;
};

} // namespace Kestra::FF
