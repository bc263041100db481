// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/MediaSpan.h"

#include "Kestra/Base/Time.h"
#include <algorithm>

namespace Kestra::FF {

namespace {

// Two clocks of a millisecond are off each other by no more.
constexpr std::int64_t ROUNDING = TIME_BASE / 500;

std::int64_t PeriodOf(const VideoSpan& frame) {
    return frame.rate > 0 ? FramesToTime(1, frame.rate) : 0;
}

// The fewest whole frames that cover the lead.
std::int64_t FramesFor(std::int64_t lead, const boost::rational<long long>& rate) {
    std::int64_t frames = std::max<std::int64_t>(0, TimeToFrames(lead, rate) - 1);
    while (FramesToTime(frames, rate) + ROUNDING < lead)
        ++frames;
    return frames;
}

} // namespace

std::int64_t FindOrigin(const std::optional<VideoSpan>& frame, const std::optional<AudioSpan>& audio) {
    if (!frame)
        return audio ? audio->start : 0;
    const std::int64_t lead = audio ? frame->start - audio->start : 0;
    if (lead < PeriodOf(*frame) + (audio ? audio->priming : 0))
        return frame->start;
    return frame->rate > 0 ? frame->start - FramesToTime(FramesFor(lead, frame->rate), frame->rate) : audio->start;
}

std::int64_t FindAudioEnd(const std::optional<VideoSpan>& frame, const AudioSpan& audio) {
    const std::int64_t over = frame ? audio.end - frame->end : 0;
    return over > 0 && over < audio.padding + PeriodOf(*frame) ? frame->end : audio.end;
}

} // namespace Kestra::FF
