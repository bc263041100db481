#include "Kestra/FF/Probe/ChunkStart.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/AudioSettling.h"
#include <algorithm>
#include <cstdlib>

namespace Kestra::FF {

namespace {

std::int64_t RoundedUp(std::int64_t value, std::int64_t unit) {
    return (value + unit - 1) / unit * unit;
}

// For sound that has to begin earlier than the picture, libav's writer moves all by whole blocks of it, then pictures
// by whole chunks.
std::int64_t PaddingFor(const ChunkStart& start, std::int64_t priming, const AVCodecParameters& sound) {
    const std::int64_t blocks = RoundedUp(priming, std::max(sound.frame_size, 1));
    return RoundedUp(SamplesToTime(blocks, sound.sample_rate), start.period);
}

} // namespace

ChunkShift AlignChunks(const ChunkStart& start, const AVCodecParameters& sound) {
    ChunkShift shift;
    const std::int64_t priming = start.byLibav ? LibavPrimingSamples(sound) : 0;
    const std::int64_t empty = start.second - start.first - start.period;
    if (priming > 0 && start.shown == start.first && empty == PaddingFor(start, priming, sound))
        shift.firstPicture = empty;
    const std::int64_t lead = start.shown + shift.firstPicture - start.first;
    const std::int64_t ahead = SamplesToTime(priming, sound.sample_rate);
    // By less than half a chunk the writer does not move the pictures.
    if (lead > 0 || (lead == 0 && 2 * ahead < start.period))
        shift.sound = lead - ahead;
    return shift;
}

ChunkShift AlignFragments(const ChunkStart& start, const AVCodecParameters& sound, std::int64_t tick) {
    ChunkShift shift;
    const std::int64_t priming = start.byLibav ? LibavPrimingSamples(sound) : 0;
    const std::int64_t late = start.second - start.first - start.period;
    const std::int64_t rounding = late - SamplesToTime(priming, sound.sample_rate);
    if (priming > 0 && start.shown == start.first && std::abs(rounding) <= tick)
        shift.firstPicture = late;
    return shift;
}

UntoldPriming FindUntoldPriming(const AVCodecParameters& sound, bool byLibav) {
    const std::int64_t libavs = LibavPrimingSamples(sound);
    if (sound.sample_rate <= 0 || sound.initial_padding > 0)
        return {};
    if (byLibav && libavs > 0)
        return {SamplesToTime(libavs, sound.sample_rate), 0};
    return {0, SamplesToTime(PrimingSamples(sound), sound.sample_rate)};
}

} // namespace Kestra::FF
