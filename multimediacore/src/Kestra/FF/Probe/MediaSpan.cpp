#include "Kestra/FF/Probe/MediaSpan.h"

#include "Kestra/Base/Time.h"
#include <algorithm>

namespace Kestra::FF {

namespace {

// Two clocks of a millisecond are off each other by no more.
constexpr std::int64_t ROUNDING = TIME_BASE / 500;

std::int64_t PeriodOf(const PictureSpan& picture) {
    return picture.rate > 0 ? FramesToTime(1, picture.rate) : 0;
}

// The fewest whole frames that cover the lead.
std::int64_t FramesFor(std::int64_t lead, const boost::rational<long long>& rate) {
    std::int64_t frames = std::max<std::int64_t>(0, TimeToFrames(lead, rate) - 1);
    while (FramesToTime(frames, rate) + ROUNDING < lead)
        ++frames;
    return frames;
}

} // namespace

std::int64_t FindOrigin(const std::optional<PictureSpan>& picture, const std::optional<SoundSpan>& sound) {
    if (!picture)
        return sound ? sound->start : 0;
    const std::int64_t lead = sound ? picture->start - sound->start : 0;
    if (lead < PeriodOf(*picture) + (sound ? sound->priming : 0))
        return picture->start;
    return picture->rate > 0 ? picture->start - FramesToTime(FramesFor(lead, picture->rate), picture->rate)
                             : sound->start;
}

std::int64_t FindSoundEnd(const std::optional<PictureSpan>& picture, const SoundSpan& sound) {
    const std::int64_t over = picture ? sound.end - picture->end : 0;
    return over > 0 && over < sound.padding + PeriodOf(*picture) ? picture->end : sound.end;
}

} // namespace Kestra::FF
