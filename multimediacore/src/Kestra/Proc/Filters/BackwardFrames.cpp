// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/BackwardFrames.h"

#include "Kestra/Base/Time.h"
#include <algorithm>
#include <utility>

namespace Kestra::Proc {

namespace {

constexpr Ticks LONGEST{2 * TIME_BASE};
constexpr Ticks FIRST_GUESS{TIME_BASE / 2};
constexpr std::int64_t STEP_BACK_GROWTH = 4;

Ticks BeginOf(const boost::intrusive_ptr<IDataVideo>& frame) {
    return Ticks(frame->GetTime());
}

} // namespace

BackwardFrames::BackwardFrames(boost::intrusive_ptr<IStreamVideo> source, Ticks lowest, std::size_t mostBytes)
    : source(std::move(source))
    , lowest(std::max(lowest, Ticks(0)))
    , mostBytes(mostBytes)
    , length(FIRST_GUESS) {}

boost::intrusive_ptr<IDataVideo> BackwardFrames::At(Ticks time) {
    while (stretch.size() > 1 && BeginOf(stretch.back()) > time) {
        bytes -= stretch.back()->GetByteSize();
        stretch.pop_back();
    }
    if (stretch.empty() || !StillShows(time))
        ReadStretch(time);
    return stretch.empty() ? nullptr : stretch.back();
}

bool BackwardFrames::StillShows(Ticks time) const {
    return BeginOf(stretch.back()) <= time || (fromFirst && stretch.size() == 1);
}

void BackwardFrames::Forget() {
    stretch.clear();
    bytes = 0;
    fromFirst = false;
}

// A source may end before `time`, and may land behind what it was sought to.
void BackwardFrames::ReadStretch(Ticks time) {
    const std::int64_t duration = source->GetDuration();
    const Ticks last = duration == TIME_UNKNOWN ? time : std::min(time, Ticks(std::max<std::int64_t>(duration - 1, 0)));
    Ticks begin = std::max(last - length, std::min(lowest, last));
    for (Ticks back = length;; begin = last - back) {
        ReadFrom(std::max(begin, Ticks(0)), time);
        if (begin <= Ticks(0) || (!stretch.empty() && BeginOf(stretch.front()) <= time))
            break;
        back = Ticks(MulDivRound(back.Value(), STEP_BACK_GROWTH, 1));
    }
    Fit();
}

void BackwardFrames::ReadFrom(Ticks begin, Ticks time) {
    Forget();
    source->Seek(begin.Value(), SeekMode::Exact);
    fromFirst = begin == Ticks(0);
    while (auto frame = source->ReadVideo()) {
        if (!stretch.empty() && BeginOf(frame) > time)
            return;
        bytes += frame->GetByteSize();
        stretch.push_back(std::move(frame));
        // What has no room any more is read again, with the stretch before.
        for (; bytes > mostBytes && stretch.size() > 1; stretch.pop_front()) {
            bytes -= stretch.front()->GetByteSize();
            fromFirst = false;
        }
    }
}

void BackwardFrames::Fit() {
    if (stretch.empty() || bytes == 0)
        return;
    const IDataVideo& last = *stretch.back();
    const std::int64_t held = last.GetTime() + last.GetDuration() - stretch.front()->GetTime();
    const std::int64_t fitting =
        MulDivRound(held, static_cast<std::int64_t>(mostBytes), static_cast<std::int64_t>(bytes));
    length = std::clamp(Ticks(fitting), Ticks(1), LONGEST);
}

} // namespace Kestra::Proc
