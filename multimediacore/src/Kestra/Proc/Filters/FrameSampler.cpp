// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/FrameSampler.h"

#include "Kestra/Proc/Filters/BackwardFrames.h"
#include "Kestra/Proc/ProcException.h"
#include <algorithm>
#include <stdexcept>

namespace Kestra::Proc {

namespace {

constexpr Ticks BEFORE_THE_END{TIME_BASE};

Ticks EndOf(const IDataVideo& frame) {
    return Ticks(frame.GetTime() + frame.GetDuration());
}

std::unique_ptr<BackwardFrames> MakeBackwards(const boost::intrusive_ptr<IStreamVideo>& source,
                                              const FrameSampler::Plan& plan) {
    if (!plan.rule.RunsBackwards())
        return nullptr;
    if (!plan.count)
        KESTRA_THROW(std::invalid_argument("A number of frames has to be ordered of what runs backwards"));
    return std::make_unique<BackwardFrames>(source, plan.rule.Shown(plan.first + *plan.count - FrameIndex(1)),
                                            plan.mostHeld);
}

} // namespace

FrameSampler::FrameSampler(const boost::intrusive_ptr<IStreamVideo>& source, const Plan& plan)
    : VideoFilterBase(source, "frame sampler")
    , plan(plan)
    , backwards(MakeBackwards(source, plan)) {}

FrameSampler::~FrameSampler() = default;

std::optional<FrameIndex> FrameSampler::Count() const {
    if (plan.count)
        return plan.count;
    const std::int64_t duration = source->GetDuration();
    if (duration == TIME_UNKNOWN)
        return std::nullopt;
    return plan.rule.GetGrid().Nearest(Ticks(duration));
}

boost::intrusive_ptr<IDataVideo> FrameSampler::ReadVideo() {
    const auto count = Count();
    if (count && produced >= *count)
        return nullptr;
    const FrameIndex index = plan.first + produced;
    if (backwards)
        return ReadBackwards(index);
    if (!current)
        Start(index);
    if (!current)
        return nullptr;
    Supply(index);
    if (!count && ended && index >= AfterCurrent())
        return nullptr;
    return Give(plan.repeats == Repeats::AsOne ? RunLength(index) : FrameIndex(1));
}

void FrameSampler::Start(FrameIndex index) {
    const Ticks target = plan.rule.Shown(index);
    ReadFrom(target);
    // Where the source ends before the target, its last frame is found by reading up to it.
    const std::int64_t duration = source->GetDuration();
    if (!current && moved && duration != TIME_UNKNOWN)
        ReadFrom(std::min(target, Ticks(duration)) - BEFORE_THE_END);
    if (!current && moved)
        ReadFrom(Ticks(0));
    if (!current && plan.count)
        FailWithoutFrames();
    if (current)
        currentIndex = std::min(index, plan.rule.FirstShowing(Ticks(current->GetTime())));
}

void FrameSampler::FailWithoutFrames() const {
    KESTRA_THROW(
        ProcException(TranscodingError::SourceUnreadable, "No picture could be read from " + source->Describe()));
}

boost::intrusive_ptr<IDataVideo> FrameSampler::ReadBackwards(FrameIndex index) {
    current = backwards->At(plan.rule.Shown(index));
    if (!current)
        FailWithoutFrames();
    const FrameIndex left = *plan.count - produced;
    FrameIndex run(1);
    while (plan.repeats == Repeats::AsOne && run < left && backwards->StillShows(plan.rule.Shown(index + run)))
        ++run;
    return Give(run);
}

void FrameSampler::ReadFrom(Ticks place) {
    // What stands in the first period is read from the start: not every source can seek.
    moved = moved || place > plan.rule.GetGrid().Middle(FrameIndex(0));
    if (moved)
        source->Seek(std::max<std::int64_t>(place.Value(), 0), SeekMode::Exact);
    current = source->ReadVideo();
}

FrameIndex FrameSampler::AfterCurrent() const {
    return plan.rule.FirstShowingAfter(currentIndex, EndOf(*current));
}

void FrameSampler::Supply(FrameIndex index) {
    while (!ended) {
        if (next && nextIndex <= index) {
            current = std::move(next);
            currentIndex = nextIndex;
        }
        if (next || index < AfterCurrent())
            return;
        next = source->ReadVideo();
        ended = !next;
        if (next)
            nextIndex = plan.rule.FirstShowingAfter(currentIndex, Ticks(next->GetTime()));
    }
}

FrameIndex FrameSampler::RunLength(FrameIndex index) const {
    const auto count = Count();
    const FrameIndex left(count ? (*count - produced).Value() : INT64_MAX);
    if (ended && count)
        return left;
    const FrameIndex until = next ? nextIndex : AfterCurrent();
    return std::clamp(until - index, FrameIndex(1), left);
}

boost::intrusive_ptr<IDataVideo> FrameSampler::Give(FrameIndex run) {
    const FrameGrid& grid = plan.rule.GetGrid();
    const Ticks begin = grid.Begin(produced);
    produced += run;
    auto frame = current->Share();
    frame->SetTime(begin.Value());
    frame->SetDuration((grid.Begin(produced) - begin).Value());
    return frame;
}

void FrameSampler::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    source->GetVideoFormat(format);
    format->SetFrameRate(plan.rule.GetGrid().GetRate());
}

std::int64_t FrameSampler::GetDuration() const {
    const auto count = Count();
    return count ? plan.rule.GetGrid().Length(*count).Value() : TIME_UNKNOWN;
}

std::int64_t FrameSampler::GetPosition() const {
    return plan.rule.GetGrid().Begin(produced).Value();
}

void FrameSampler::Seek(std::int64_t time, SeekMode) {
    Forget();
    moved = true;
    const FrameIndex last = Count().value_or(FrameIndex(INT64_MAX));
    produced = std::clamp(plan.rule.GetGrid().Covering(Ticks(std::max<std::int64_t>(time, 0))), FrameIndex(0), last);
}

void FrameSampler::Reset() {
    VideoFilterBase::Reset();
    Forget();
    moved = false;
    produced = FrameIndex(0);
}

void FrameSampler::Forget() {
    ended = false;
    current.reset();
    next.reset();
    if (backwards)
        backwards->Forget();
}

} // namespace Kestra::Proc
