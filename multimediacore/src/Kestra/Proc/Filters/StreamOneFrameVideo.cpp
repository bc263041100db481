// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/StreamOneFrameVideo.h"

#include "Kestra/Base/Exception.h"

#include <stdexcept>
#include <utility>

namespace Kestra::Proc {

boost::intrusive_ptr<StreamOneFrameVideo> StreamOneFrameVideo::Create(const boost::intrusive_ptr<IDataVideo>& frame) {
    if (!frame)
        KESTRA_THROW(std::invalid_argument("A stream of one picture was given none"));
    return new StreamOneFrameVideo(frame);
}

StreamOneFrameVideo::StreamOneFrameVideo(boost::intrusive_ptr<IDataVideo> frame)
    : frame(std::move(frame)) {}

// A reader may change the times of what it gets: the next one is to find them as they were.
boost::intrusive_ptr<IDataVideo> StreamOneFrameVideo::ReadVideo() {
    if (std::exchange(read, true))
        return {};
    return frame->Share();
}

void StreamOneFrameVideo::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    const Conf::FrameInfo info = frame->GetFrameInfo();
    format = Conf::IFormatCodecVideo::Create();
    format->InitByFrameAspect(info.width, info.height, info.aspectNumerator, info.aspectDenominator);
    format->SetPixelFormat(frame->GetPixelFormat());
}

void StreamOneFrameVideo::Seek(std::int64_t, SeekMode) {
    read = false;
}

void StreamOneFrameVideo::Reset() {
    read = false;
}

} // namespace Kestra::Proc
