// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/FrameDurations.h"

#include "Kestra/Base/Time.h"
#include <algorithm>

namespace Kestra::Proc {

FrameDurations::FrameDurations(const boost::intrusive_ptr<IStreamVideo>& source)
    : VideoFilterBase(source, "frame durations") {}

boost::intrusive_ptr<IDataVideo> FrameDurations::ReadVideo() {
    auto frame = ahead ? std::move(ahead) : source->ReadVideo();
    if (!frame)
        return {};
    ahead = source->ReadVideo();
    if (ahead) {
        frame->SetDuration(std::max<std::int64_t>(ahead->GetTime() - frame->GetTime(), 0));
    } else if (const std::int64_t end = source->GetDuration(); end != TIME_UNKNOWN && end > frame->GetTime()) {
        frame->SetDuration(end - frame->GetTime());
    }
    return frame;
}

std::int64_t FrameDurations::GetPosition() const {
    return ahead ? ahead->GetTime() : source->GetPosition();
}

void FrameDurations::Seek(std::int64_t time, SeekMode mode) {
    ahead.reset();
    source->Seek(time, mode);
}

void FrameDurations::Reset() {
    ahead.reset();
    source->Reset();
}

} // namespace Kestra::Proc
