#include "Kestra/Proc/Filters/ReadAheadAudio.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace Kestra::Proc {

namespace {

constexpr std::size_t MAX_BYTES = std::size_t{32} << 20;

} // namespace

ReadAheadAudio::ReadAheadAudio(const boost::intrusive_ptr<IStreamAudio>& source, int blocks)
    : AudioFilterBase(source, "read-ahead")
    , queue([this] { return boost::intrusive_ptr<IData>(this->source->ReadAudio()); },
            static_cast<std::size_t>(blocks > 0 ? blocks : 1), MAX_BYTES) {}

// Nobody reads any more: a read under way need not come to its end. The queue joins its thread.
ReadAheadAudio::~ReadAheadAudio() {
    if (queue.IsRunning())
        source->Interrupt();
}

void ReadAheadAudio::Start() {
    source->Prepare();
    source->GetAudioFormat(format);
    duration = source->GetDuration();
    position = source->GetPosition();
    queue.Start();
}

boost::intrusive_ptr<IDataAudio> ReadAheadAudio::ReadAudio() {
    if (!queue.IsRunning())
        Start();
    auto piece = boost::static_pointer_cast<IDataAudio>(queue.Pop());
    if (piece)
        position = piece->GetTime() + piece->GetDuration();
    return piece;
}

void ReadAheadAudio::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& result) const {
    if (!queue.IsRunning())
        return source->GetAudioFormat(result);
    result = Conf::IFormatCodecAudio::Create();
    result->SetProperty(format->GetProperty());
}

std::int64_t ReadAheadAudio::GetDuration() const {
    return queue.IsRunning() ? duration : source->GetDuration();
}

std::int64_t ReadAheadAudio::GetPosition() const {
    return queue.IsRunning() ? position : source->GetPosition();
}

void ReadAheadAudio::Seek(std::int64_t time, SeekMode mode) {
    queue.Stop();
    source->Seek(time, mode);
}

void ReadAheadAudio::Interrupt() {
    source->Interrupt();
    queue.Interrupt();
}

void ReadAheadAudio::Prepare() {
    if (!queue.IsRunning())
        source->Prepare();
}

void ReadAheadAudio::Reset() {
    if (queue.IsRunning())
        source->Interrupt();
    queue.Stop();
    queue.ClearInterrupt();
    source->Reset();
}

} // namespace Kestra::Proc
