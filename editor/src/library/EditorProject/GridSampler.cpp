#include "EditorProject/GridSampler.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/Filters/NotImplemented.h"
#include "Kestra/Proc/Filters/PicturePeriods.h"
#include "Kestra/Proc/ProcException.h"
#include <algorithm>

namespace Project {

using namespace Kestra;

GridSampler::GridSampler(boost::intrusive_ptr<Proc::IStreamVideo> source, const boost::rational<long long>& rate,
                         bool own, std::int64_t first, std::int64_t count)
    : VideoFilterBase(std::move(source), "frame sampler")
    , rate(rate)
    , own(own)
    , first(first)
    , count(count) {}

boost::intrusive_ptr<Proc::IDataVideo> GridSampler::ReadVideo() {
    if (produced >= count)
        return nullptr;
    if (!started)
        Start();
    Supply(first + produced);
    const std::int64_t run = RunLength();
    const std::int64_t begin = FramesToTime(produced, rate);
    boost::intrusive_ptr<Proc::IDataVideo> picture = current->Share();
    picture->SetTime(begin);
    picture->SetDuration(FramesToTime(produced + run, rate) - begin);
    produced += run;
    return picture;
}

void GridSampler::Start() {
    const std::int64_t target = Proc::MiddleOfPeriod(first, rate);
    // Where the track ends before the target, its last frame is found by reading up to it.
    for (const std::int64_t place : {target, std::min(target, source->GetDuration()) - TIME_BASE, std::int64_t(0)}) {
        if (first > 0)
            source->Seek(std::max<std::int64_t>(0, place), Proc::SeekMode::Exact);
        current = source->ReadVideo();
        started = current != nullptr;
        if (started || first == 0)
            break;
    }
    if (!started)
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::SourceUnreadable,
                                         "No picture could be read from " + source->Describe()));
    currentPeriod = std::min(first, Proc::FirstPeriodOf(current->GetTime(), rate));
}

std::int64_t GridSampler::PeriodAfterCurrent(std::int64_t time) const {
    return own ? Proc::FirstPeriodAfter(currentPeriod, time, rate) : Proc::FirstPeriodOf(time, rate);
}

void GridSampler::Supply(std::int64_t period) {
    while (!ended) {
        if (next && nextPeriod <= period) {
            current = std::move(next);
            currentPeriod = nextPeriod;
        }
        if (next || period < PeriodAfterCurrent(current->GetTime() + current->GetDuration()))
            return;
        next = source->ReadVideo();
        ended = !next;
        if (next)
            nextPeriod = PeriodAfterCurrent(next->GetTime());
    }
}

std::int64_t GridSampler::RunLength() const {
    const std::int64_t left = count - produced;
    if (ended)
        return left;
    const std::int64_t until = next ? nextPeriod : PeriodAfterCurrent(current->GetTime() + current->GetDuration());
    return std::clamp<std::int64_t>(until - first - produced, 1, left);
}

std::int64_t GridSampler::GetDuration() const {
    return FramesToTime(count, rate);
}

std::int64_t GridSampler::GetPosition() const {
    return FramesToTime(produced, rate);
}

void GridSampler::Seek(std::int64_t, Proc::SeekMode) {
    KESTRA_NOT_IMPLEMENTED();
}

void GridSampler::Reset() {
    VideoFilterBase::Reset();
    started = false;
    ended = false;
    produced = 0;
    current.reset();
    next.reset();
}

} // namespace Project
