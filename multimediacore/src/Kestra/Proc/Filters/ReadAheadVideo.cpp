#include "Kestra/Proc/Filters/ReadAheadVideo.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace Kestra::Proc {

namespace {

constexpr std::size_t MAX_BYTES = std::size_t{256} << 20;

} // namespace

ReadAheadVideo::ReadAheadVideo(const boost::intrusive_ptr<IStreamVideo>& source, int pictures)
    : VideoFilterBase(source, "read-ahead")
    , queue([this] { return boost::intrusive_ptr<IData>(this->source->ReadVideo()); },
            static_cast<std::size_t>(pictures > 0 ? pictures : 1), MAX_BYTES) {}

// Nobody reads any more: a read under way need not come to its end. The queue joins its thread.
ReadAheadVideo::~ReadAheadVideo() {
    if (queue.IsRunning())
        source->Interrupt();
}

void ReadAheadVideo::Start() {
    source->Prepare();
    source->GetVideoFormat(format);
    duration = source->GetDuration();
    position = source->GetPosition();
    queue.Start();
}

boost::intrusive_ptr<IDataVideo> ReadAheadVideo::ReadVideo() {
    if (!queue.IsRunning())
        Start();
    auto piece = boost::static_pointer_cast<IDataVideo>(queue.Pop());
    if (piece)
        position = piece->GetTime() + piece->GetDuration();
    return piece;
}

void ReadAheadVideo::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& result) const {
    if (!queue.IsRunning())
        return source->GetVideoFormat(result);
    result = Conf::IFormatCodecVideo::Create();
    result->SetProperty(format->GetProperty());
}

std::int64_t ReadAheadVideo::GetDuration() const {
    return queue.IsRunning() ? duration : source->GetDuration();
}

std::int64_t ReadAheadVideo::GetPosition() const {
    return queue.IsRunning() ? position : source->GetPosition();
}

void ReadAheadVideo::Seek(std::int64_t time, SeekMode mode) {
    queue.Stop();
    source->Seek(time, mode);
}

void ReadAheadVideo::Interrupt() {
    source->Interrupt();
    queue.Interrupt();
}

void ReadAheadVideo::Prepare() {
    if (!queue.IsRunning())
        source->Prepare();
}

void ReadAheadVideo::Reset() {
    if (queue.IsRunning())
        source->Interrupt();
    queue.Stop();
    queue.ClearInterrupt();
    source->Reset();
}

} // namespace Kestra::Proc
