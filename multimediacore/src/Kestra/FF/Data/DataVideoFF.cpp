// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Data/DataVideoFF.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Av/Convert.h"
#include <stdexcept>
#include <utility>

namespace Kestra::FF {

DataVideoFF::DataVideoFF(FrameHandle picture, std::int64_t time, std::int64_t duration)
    : frame(std::move(picture))
    , time(time)
    , duration(duration) {}

std::size_t DataVideoFF::GetByteSize() const {
    std::size_t size = 0;
    for (const AVBufferRef* buffer : frame->buf)
        size += buffer ? buffer->size : 0;
    return size;
}

Conf::FrameInfo DataVideoFF::GetFrameInfo() const {
    return MakeFrameInfo(frame->width, frame->height, frame->sample_aspect_ratio);
}

Conf::PixelFormat DataVideoFF::GetPixelFormat() const {
    return FromAv(static_cast<AVPixelFormat>(frame->format));
}

boost::intrusive_ptr<Proc::IDataVideo> DataVideoFF::Share() const {
    return new DataVideoFF(MakeFrameReference(*frame), time, duration);
}

const AVFrame& FrameOf(const Proc::IDataVideo& data) {
    const auto* own = dynamic_cast<const DataVideoFF*>(&data);
    if (!own)
        KESTRA_THROW(std::invalid_argument("a picture that this engine did not make"));
    return own->GetFrame();
}

} // namespace Kestra::FF
