// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/PreferredFrameRate.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/Filters/FrameDurations.h"
#include "Kestra/Proc/Filters/FrameSampler.h"
#include <algorithm>

namespace Kestra::Proc {

PreferredFrameRate::PreferredFrameRate(const boost::intrusive_ptr<IStreamVideo>& source)
    : VideoFilterBase(source, "preferred frame rate") {}

boost::rational<long long> PreferredFrameRate::Rate() const {
    if (preferred > 0)
        return preferred;
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    source->GetVideoFormat(format);
    return format->GetFrameRate() > 0 ? 0 : STILL_RATE;
}

IStreamVideo& PreferredFrameRate::Pacer() const {
    if (!pacer) {
        const auto rate = Rate();
        if (rate > 0)
            pacer = new FrameSampler(source, {SamplingRule(FrameGrid(rate))});
        else
            pacer = new FrameDurations(source);
    }
    return *pacer;
}

boost::intrusive_ptr<IDataVideo> PreferredFrameRate::ReadVideo() {
    auto frame = Pacer().ReadVideo();
    if (frame)
        FitToEnd(*frame);
    return frame;
}

void PreferredFrameRate::FitToEnd(IDataVideo& frame) const {
    const std::int64_t end = GetDuration();
    if (end == TIME_UNKNOWN)
        return;
    const bool last = Pacer().GetPosition() >= Pacer().GetDuration();
    if (last || frame.GetTime() + frame.GetDuration() > end)
        frame.SetDuration(std::max<std::int64_t>(end - frame.GetTime(), 0));
}

void PreferredFrameRate::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    source->GetVideoFormat(format);
    if (const auto rate = Rate(); rate > 0)
        format->SetFrameRate(rate);
}

std::int64_t PreferredFrameRate::GetPosition() const {
    const std::int64_t end = GetDuration();
    const std::int64_t position = Pacer().GetPosition();
    return end == TIME_UNKNOWN ? position : std::min(position, end);
}

void PreferredFrameRate::Seek(std::int64_t time, SeekMode mode) {
    Pacer().Seek(time, mode);
}

// A consumer that cuts has moved already when the encoder behind it tells its rate.
void PreferredFrameRate::Prefer(const boost::rational<long long>& rate) {
    const std::int64_t position = pacer ? pacer->GetPosition() : 0;
    preferred = rate;
    pacer.reset();
    if (position > 0)
        Pacer().Seek(position, SeekMode::Exact);
}

void PreferredFrameRate::PreferFormat(const Conf::IFormatCodec& format) {
    const auto* video = dynamic_cast<const Conf::IFormatCodecVideo*>(&format);
    if (video && video->GetFrameRate() > 0 && video->GetFrameRate() != preferred)
        Prefer(video->GetFrameRate());
    source->PreferFormat(format);
}

void PreferredFrameRate::Reset() {
    pacer.reset();
    source->Reset();
}

} // namespace Kestra::Proc
