// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Processor/EncoderThread.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include <utility>

namespace Kestra::Proc {

EncoderThread::EncoderThread(boost::intrusive_ptr<IStreamRaw> stream, std::shared_ptr<RunState> state)
    : stream(std::move(stream))
    , state(std::move(state))
    , queue(PACKET_LIMITS) {}

void EncoderThread::Start(OnFailure onFailure) {
    const std::string name = NameForThread();
    state->EncoderEntered();
    try {
        const auto end = [self = shared_from_this(), onFailure = std::move(onFailure)](std::exception_ptr failure) {
            if (failure)
                onFailure(std::move(failure));
            self->state->EncoderLeft();
        };
        thread.Start(
            name, [self = shared_from_this()] { self->Run(); }, end);
    } catch (...) {
        state->EncoderLeft();
        throw;
    }
}

// What kind of track it is, the encoder's description says before its codec is open.
std::string EncoderThread::NameForThread() const {
    boost::intrusive_ptr<Conf::IFormatCodec> description;
    stream->GetFormatCodec(description);
    if (dynamic_cast<const Conf::IFormatCodecVideo*>(description.get()))
        return "kestra-enc-vid";
    if (dynamic_cast<const Conf::IFormatCodecAudio*>(description.get()))
        return "kestra-enc-aud";
    return "kestra-enc";
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

void EncoderThread::Run() {
    state->EnterThread();
    try {
        Prepare();
        Encode();
    } catch (const Interrupted&) {
        RefuseInterruption();
    }
}

// The run interrupts only once it is ending, and then it has its outcome. An interruption by anybody else leaves the
// track short, and that is no end to be told as a success.
void EncoderThread::RefuseInterruption() const {
    if (!state->IsEnding()) {
        KESTRA_THROW(
            ProcException("\"" + stream->Describe() + "\" was interrupted, though nobody had stopped the run"));
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
