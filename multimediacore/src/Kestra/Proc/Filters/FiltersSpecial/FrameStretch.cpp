// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/FiltersSpecial/FrameStretch.h"

#include "Kestra/Proc/ProcException.h"
#include <algorithm>
#include <stdexcept>

namespace Kestra::Proc {

namespace {

// Reports are grouped by the place that they carry, so these places stay what they are when lines move.
constexpr const char* SOURCE_FILE = "multimediacore/src/Kestra/Proc/Filters/FiltersSpecial/FrameStretch.cpp";
constexpr int LINE_CONSTRUCTOR = 21;
constexpr int LINE_INITIALIZE = 53;
constexpr int LINE_GET_SETTINGS = 58;

[[noreturn]] void ThrowNotImplemented(const char* function, int line) {
    FilterException exception("Method not implemented");
    exception << TagDescription("Method not implemented") << TagCallStack(GetCallStack());
    ThrowFrom(exception, function, SOURCE_FILE, line);
}

} // namespace

FrameStretch::FrameStretch(const boost::intrusive_ptr<IStreamVideo>& source, std::int64_t duration)
    : duration(duration)
    , source(source) {
    if (!source || duration < 1)
        ThrowFrom(std::invalid_argument("Kestra::Proc::FrameStretch::FrameStretch"), BOOST_CURRENT_FUNCTION,
                  SOURCE_FILE, LINE_CONSTRUCTOR);
}

boost::intrusive_ptr<IDataVideo> FrameStretch::ReadVideo() {
    if (position == duration)
        return nullptr;
    boost::intrusive_ptr<IDataVideo> frame = source->ReadVideo();
    if (frame) {
        frame->SetTime(position);
        frame->SetDuration(duration - position);
    }
    position = duration; // a source without a frame ends the stream too
    return frame;
}

void FrameStretch::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    source->GetVideoFormat(format);
}

void FrameStretch::Initialize(const Core::Property&) {
    ThrowNotImplemented(BOOST_CURRENT_FUNCTION, LINE_INITIALIZE);
}

Core::Property FrameStretch::GetSettings() const {
    ThrowNotImplemented(BOOST_CURRENT_FUNCTION, LINE_GET_SETTINGS);
}

std::int64_t FrameStretch::GetDuration() const {
    return duration;
}

std::int64_t FrameStretch::GetPosition() const {
    return position;
}

boost::intrusive_ptr<IData> FrameStretch::ReadData() {
    return ReadVideo();
}

void FrameStretch::Seek(std::int64_t time, SeekMode mode) {
    position = std::max<std::int64_t>(std::min(time, duration), 0);
    source->Seek(0, mode);
}

void FrameStretch::Interrupt() {
    source->Interrupt();
}

bool FrameStretch::IsSeekable() const {
    return true;
}

void FrameStretch::GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    GetFormatCodecBase(format);
}

std::string FrameStretch::Describe() const {
    return source->Describe();
}

void FrameStretch::PreferFormat(const Conf::IFormatCodec& format) {
    source->PreferFormat(format);
}

void FrameStretch::Prepare() {
    source->Prepare();
}

void FrameStretch::Reset() {
    position = 0;
    source->Reset();
}

boost::intrusive_ptr<IStreamVideo> CreateFrameStretch(const boost::intrusive_ptr<IStreamVideo>& source,
                                                      std::int64_t duration) {
    return new FrameStretch(source, duration);
}

} // namespace Kestra::Proc
