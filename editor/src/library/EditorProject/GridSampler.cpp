#include "EditorProject/GridSampler.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/Filters/NotImplemented.h"
#include "Kestra/Proc/ProcException.h"
#include <algorithm>

namespace Project {

using namespace Kestra;

GridSampler::GridSampler(boost::intrusive_ptr<Proc::IStreamVideo> source, const boost::rational<long long>& rate,
                         std::int64_t first, std::int64_t count)
    : VideoFilterBase(std::move(source), "frame sampler")
    , rate(rate)
    , first(first)
    , count(count) {}

boost::intrusive_ptr<Proc::IDataVideo> GridSampler::ReadVideo() {
    if (produced >= count || interrupted || (!started && !Start()))
        return nullptr;
    Supply(MiddleOf(produced));
    if (interrupted)
        return nullptr; // what looks like the source's end is none
    const std::int64_t run = RunLength();
    const std::int64_t begin = FramesToTime(produced, rate);
    boost::intrusive_ptr<Proc::IDataVideo> picture = current->Share();
    picture->SetTime(begin);
    picture->SetDuration(FramesToTime(produced + run, rate) - begin);
    produced += run;
    return picture;
}

std::int64_t GridSampler::MiddleOf(std::int64_t index) const {
    const std::int64_t begin = FramesToTime(first + index, rate);
    return begin + (FramesToTime(first + index + 1, rate) - begin) / 2;
}

bool GridSampler::Start() {
    const std::int64_t target = MiddleOf(0);
    // Where the track ends before the target, its last frame is found by reading up to it.
    for (const std::int64_t place : {target, std::min(target, source->GetDuration()) - TIME_BASE, std::int64_t(0)}) {
        if (first > 0)
            source->Seek(std::max<std::int64_t>(0, place), Proc::SeekMode::Exact);
        current = source->ReadVideo();
        started = current != nullptr;
        if (started || interrupted || first == 0)
            break;
    }
    if (!started && !interrupted)
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::SourceUnreadable,
                                         "No picture could be read from " + source->Describe()));
    return started;
}

void GridSampler::Supply(std::int64_t time) {
    while (!ended) {
        if (next && next->GetTime() <= time)
            current = std::move(next);
        if (next || time < current->GetTime() + current->GetDuration())
            return;
        next = source->ReadVideo();
        ended = !next;
    }
}

std::int64_t GridSampler::RunLength() const {
    const std::int64_t left = count - produced;
    if (ended)
        return left;
    const std::int64_t until = next ? next->GetTime() : current->GetTime() + current->GetDuration();
    // The estimate may be one off either way; the middles decide.
    std::int64_t run = std::clamp<std::int64_t>(TimeToFrames(until, rate) - first - produced - 1, 1, left);
    while (run < left && MiddleOf(produced + run) < until)
        ++run;
    return run;
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

void GridSampler::Interrupt() {
    interrupted = true;
    VideoFilterBase::Interrupt();
}

void GridSampler::Reset() {
    VideoFilterBase::Reset();
    interrupted = false;
    started = false;
    ended = false;
    produced = 0;
    current.reset();
    next.reset();
}

} // namespace Project
