#include "Kestra/Proc/Processor/EncoderThread.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include "Kestra/Proc/Processor/ThreadName.h"
#include <utility>

namespace Kestra::Proc {

EncoderThread::EncoderThread(boost::intrusive_ptr<IStreamRaw> stream, std::shared_ptr<RunState> state)
    : stream(std::move(stream))
    , state(std::move(state))
    , queue(PACKET_LIMITS) {}

void EncoderThread::Start(const std::string& threadName, OnFailure onFailure) {
    state->EncoderEntered();
    try {
        thread.Start([self = shared_from_this(), threadName, onFailure = std::move(onFailure)] {
            self->Run(threadName, onFailure);
        });
    } catch (...) {
        state->EncoderLeft();
        throw;
    }
}

void EncoderThread::JoinOrLeave(std::chrono::steady_clock::time_point deadline) {
    thread.JoinOrLeave(deadline);
}

void EncoderThread::Interrupt() noexcept {
    queue.Cancel();
    try {
        stream->Interrupt();
    } catch (...) {
        // The run is ending for a reason of its own; a stream that goes on is waited for, or left.
        return;
    }
}

void EncoderThread::Run(const std::string& threadName, const OnFailure& onFailure) {
    state->EnterThread();
    SetThreadName(threadName);
    try {
        Prepare();
        Encode();
    } catch (const Interrupted&) {
        OnInterrupted(onFailure);
    } catch (...) {
        onFailure(std::current_exception());
    }
    state->EncoderLeft();
}

// The run interrupts only once it is ending, and then it has its outcome. An interruption by anybody else leaves the
// track short, and that is no end to be told as a success.
void EncoderThread::OnInterrupted(const OnFailure& onFailure) const {
    if (!state->IsEnding()) {
        onFailure(std::make_exception_ptr(
            ProcException("\"" + stream->Describe() + "\" was interrupted, though nobody had stopped the run")));
    }
}

void EncoderThread::Prepare() {
    if (state->IsEnding()) {
        return;
    }
    stream->Prepare();
    stream->GetFormatCodec(format);
    duration = stream->GetDuration();
    state->EncoderPrepared();
}

void EncoderThread::Encode() {
    while (!state->IsEnding()) {
        auto packet = stream->ReadRaw();
        if (packet == nullptr) {
            break;
        }
        if (!queue.Push(std::move(packet))) {
            return;
        }
    }
    // Where an ending left the loop, the queue is cancelled and its end says nothing.
    queue.End();
}

} // namespace Kestra::Proc
