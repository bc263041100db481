// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/RepeatedPicture.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include <algorithm>

namespace Kestra::FF {

RepeatedPicture::RepeatedPicture(const Conf::IFormatCodecVideo& wanted, std::int64_t duration)
    : format(Conf::IFormatCodecVideo::Create())
    , duration(duration) {
    format->SetProperty(wanted.GetProperty());
}

std::int64_t RepeatedPicture::Count() const {
    if (duration <= 0)
        return 0;
    const auto rate = format->GetFrameRate();
    return rate > 0 ? std::max<std::int64_t>(TimeToFrames(duration, rate), 1) : 1;
}

std::int64_t RepeatedPicture::TimeOf(std::int64_t frame) const {
    const auto rate = format->GetFrameRate();
    return frame >= Count() ? duration : rate > 0 ? FramesToTime(frame, rate) : 0;
}

boost::intrusive_ptr<Proc::IDataVideo> RepeatedPicture::ReadVideo() {
    if (index >= Count())
        return {};
    if (!picture)
        picture = Draw();
    const std::int64_t begin = TimeOf(index);
    return new DataVideoFF(MakeFrameReference(*picture), begin, TimeOf(++index) - begin);
}

void RepeatedPicture::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& result) const {
    result = Conf::IFormatCodecVideo::Create();
    result->SetProperty(format->GetProperty());
}

std::int64_t RepeatedPicture::GetPosition() const {
    return std::min(duration, TimeOf(index));
}

void RepeatedPicture::Seek(std::int64_t time, Proc::SeekMode) {
    const std::int64_t count = Count();
    const auto rate = format->GetFrameRate();
    index = rate > 0 ? std::clamp<std::int64_t>(TimeToFrames(time, rate), 0, count) : 0;
    if (index > 0 && TimeOf(index) > time)
        --index;
    if (time >= duration)
        index = count;
}

void RepeatedPicture::ChangeFormat(Conf::PixelFormat pixelFormat, const Conf::ColourInfo& colour) {
    format->SetPixelFormat(pixelFormat);
    format->SetColour(colour);
    picture.reset();
}

} // namespace Kestra::FF
