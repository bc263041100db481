#include "Kestra/Proc/Processor/EncoderThread.h"
#include "Kestra/Proc/Processor/ThreadName.h"
#include <utility>

namespace Kestra::Proc {

EncoderThread::EncoderThread(boost::intrusive_ptr<IStreamRaw> stream, RunState& state, OnFailure onFailure)
    : stream(std::move(stream))
    , state(state)
    , onFailure(std::move(onFailure))
    , queue(PacketQueue::Limits()) {}

void EncoderThread::Start(const std::string& threadName) {
    state.EncoderEntered();
    try {
        thread = std::thread([this, threadName] { Run(threadName); });
    } catch (...) {
        state.EncoderLeft();
        throw;
    }
}

void EncoderThread::Join() {
    if (thread.joinable()) {
        thread.join();
    }
}

void EncoderThread::Interrupt() noexcept {
    queue.Cancel();
    try {
        stream->Interrupt();
    } catch (...) {
        // The run is ending for a reason of its own; the join waits for the stream either way.
        return;
    }
}

void EncoderThread::Run(const std::string& threadName) {
    state.EnterThread();
    SetThreadName(threadName);
    try {
        Prepare();
        Encode();
    } catch (...) {
        onFailure(std::current_exception());
    }
    state.EncoderLeft();
}

void EncoderThread::Prepare() {
    if (state.IsEnding()) {
        return;
    }
    stream->Prepare();
    stream->GetFormatCodec(format);
    duration = stream->GetDuration();
    state.EncoderPrepared();
}

void EncoderThread::Encode() {
    while (!state.IsEnding()) {
        const auto packet = stream->ReadRaw();
        if (packet == nullptr) {
            break;
        }
        if (!queue.Push(packet)) {
            return;
        }
    }
    // An interrupted read returns null as well; then the queue is cancelled and its end says nothing.
    queue.End();
}

} // namespace Kestra::Proc
