#include "Kestra/Proc/Filters/FrameRate.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/Base/Time.h"
#include <algorithm>
#include <stdexcept>

namespace Kestra::Proc {

FrameRate::FrameRate(const boost::intrusive_ptr<IStreamVideo>& source, const boost::rational<long long>& rate)
    : VideoFilterBase(source, "frame rate")
    , rate(rate) {
    if (rate <= 0)
        KESTRA_THROW(std::invalid_argument("A constant frame rate has to be positive"));
}

std::int64_t FrameRate::CountFrames() const {
    const std::int64_t duration = source->GetDuration();
    return duration == TIME_UNKNOWN ? INT64_MAX : TimeToFrames(duration, rate);
}

std::int64_t FrameRate::GetDuration() const {
    return source->GetDuration() == TIME_UNKNOWN ? TIME_UNKNOWN : FramesToTime(CountFrames(), rate);
}

std::int64_t FrameRate::GetPosition() const {
    return FramesToTime(index, rate);
}

void FrameRate::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    source->GetVideoFormat(format);
    format->SetFrameRate(rate);
}

std::int64_t FrameRate::MiddleOf(std::int64_t frame) const {
    return MulDivRound(2 * frame + 1, rate.denominator() * TIME_BASE, 2 * rate.numerator());
}

void FrameRate::PullUpTo(std::int64_t time) {
    while (!ended && (!shown || shown->GetTime() + shown->GetDuration() <= time)) {
        auto next = source->ReadVideo();
        if (next)
            shown = std::move(next);
        else
            ended = true;
    }
}

boost::intrusive_ptr<IDataVideo> FrameRate::ReadVideo() {
    if (index >= CountFrames())
        return {};
    const std::int64_t middle = MiddleOf(index);
    PullUpTo(middle);
    const bool unknownEnd = source->GetDuration() == TIME_UNKNOWN;
    if (!shown || (ended && unknownEnd && shown->GetTime() + shown->GetDuration() <= middle))
        return {};
    const std::int64_t begin = FramesToTime(index, rate);
    auto frame = shown->Share();
    frame->SetTime(begin);
    frame->SetDuration(FramesToTime(++index, rate) - begin);
    return frame;
}

void FrameRate::Seek(std::int64_t time, SeekMode) {
    index = MulDivRound(std::max<std::int64_t>(time, 0), rate.numerator(), rate.denominator() * TIME_BASE);
    if (FramesToTime(index, rate) > time)
        --index;
    index = std::clamp<std::int64_t>(index, 0, CountFrames());
    shown.reset();
    ended = false;
    source->Seek(MiddleOf(index), SeekMode::Exact);
}

void FrameRate::Reset() {
    index = 0;
    shown.reset();
    ended = false;
    source->Reset();
}

} // namespace Kestra::Proc
