// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/ChunkStart.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/DecoderPreroll.h"
#include <algorithm>
#include <cstdlib>

namespace Kestra::FF {

namespace {

std::int64_t RoundedUp(std::int64_t value, std::int64_t unit) {
    return (value + unit - 1) / unit * unit;
}

// AVI does not tell it; of most codecs it is always the same, of others it is that of the first one.
int SamplesOfBlock(const ChunkStart& start, AVCodecParameters audio) {
    const int told = av_get_audio_frame_duration2(&audio, 0);
    return std::max(told > 0 ? told : start.block, 1);
}

// For audio that has to begin earlier than the picture, libav's writer moves all by whole blocks of it, then pictures
// by whole chunks.
std::int64_t PaddingFor(const ChunkStart& start, std::int64_t priming, const AVCodecParameters& audio) {
    const std::int64_t blocks = RoundedUp(priming, SamplesOfBlock(start, audio));
    return RoundedUp(SamplesToTime(blocks, audio.sample_rate), start.period);
}

} // namespace

ChunkShift AlignChunks(const ChunkStart& start, const AVCodecParameters& audio) {
    ChunkShift shift;
    const std::int64_t priming = start.byLibav ? LibavPrimingSamples(audio) : 0;
    const std::int64_t empty = start.second - start.first - start.period;
    if (priming > 0 && start.shown == start.first && empty == PaddingFor(start, priming, audio))
        shift.firstFrame = empty;
    const std::int64_t lead = start.shown + shift.firstFrame - start.first;
    const std::int64_t ahead = SamplesToTime(priming, audio.sample_rate);
    // Less than half a block is none to the writer, and moves no picture.
    if (lead > 0 || (lead == 0 && 2 * priming < SamplesOfBlock(start, audio)))
        shift.audio = lead - ahead;
    return shift;
}

ChunkShift AlignFragments(const ChunkStart& start, const AVCodecParameters& audio, std::int64_t tick) {
    ChunkShift shift;
    const std::int64_t priming = start.byLibav ? LibavPrimingSamples(audio) : 0;
    const std::int64_t late = start.second - start.first - start.period;
    const std::int64_t rounding = late - SamplesToTime(priming, audio.sample_rate);
    if (priming > 0 && start.shown == start.first && std::abs(rounding) <= tick)
        shift.firstFrame = late;
    return shift;
}

std::int64_t FirstBlockShift(const ChunkStart& start, const AudioStart& audioStart, const AVCodecParameters& audio,
                             std::int64_t tick) {
    const std::int64_t delay = start.shown - start.first;
    const std::int64_t expected = delay - SamplesToTime(LibavPrimingSamples(audio), audio.sample_rate);
    const std::int64_t rounding = tick + SamplesToTime(1, audio.sample_rate);
    const bool isLeft = start.byLibav && delay > 0 && audioStart.first == start.first && audioStart.gap > rounding;
    return isLeft && std::abs(audioStart.gap - expected) <= rounding ? audioStart.gap : 0;
}

UntoldPriming FindUntoldPriming(const AVCodecParameters& audio, bool byLibav) {
    const std::int64_t libavs = LibavPrimingSamples(audio);
    if (audio.sample_rate <= 0)
        return {};
    if (libavs > 0 && (byLibav || audio.initial_padding > 0))
        return {SamplesToTime(libavs, audio.sample_rate), 0};
    return {0, SamplesToTime(PrimingSamples(audio), audio.sample_rate)};
}

} // namespace Kestra::FF
