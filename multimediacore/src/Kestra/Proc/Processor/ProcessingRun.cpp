// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Processor/ProcessingRun.h"
#include <utility>

namespace Kestra::Proc {
namespace {

// Both together stay well below the 0.2 s in which a stop has to be answered.
constexpr std::chrono::milliseconds DISCARD_GRACE{40};
constexpr std::chrono::milliseconds ENCODER_PATIENCE{80};
// An encoder comes out of its stream as soon as it is interrupted, even a slow one within some frames.
constexpr std::chrono::seconds JOIN_PATIENCE{2};

} // namespace

ProcessingRun::ProcessingRun(const std::vector<boost::intrusive_ptr<IStreamRaw>>& streams,
                             boost::intrusive_ptr<IMuxer> muxer)
    : streams(streams)
    , muxer(std::move(muxer)) {
    for (const auto& stream : streams) {
        encoders.push_back(std::make_shared<EncoderThread>(stream, state));
    }
}

void ProcessingRun::Run() {
    state->EnterThread();
    try {
        Export();
    } catch (...) {
        state->FailRun(std::current_exception());
    }
    Conclude();
    JoinEncoders();
}

void ProcessingRun::Refuse(std::exception_ptr cause) {
    state->FailRun(std::move(cause));
    Conclude();
}

void ProcessingRun::ResetStreams() {
    try {
        for (const auto& stream : streams) {
            stream->Reset();
        }
    } catch (...) {
        state->FailRun(std::current_exception());
    }
}

void ProcessingRun::Stop() {
    if (state->RequestStop()) {
        InterruptEncoders();
    }
}

void ProcessingRun::Discard() {
    state->RequestDiscard();
}

void ProcessingRun::Abandon() {
    if (state->Abandon()) {
        InterruptEncoders();
    }
}

void ProcessingRun::FinishInsideEvent() {
    if (state->IsEnding()) {
        InterruptEncoders();
        AbortMuxer();
    }
    JoinEncoders();
}

void ProcessingRun::Export() {
    if (state->IsEnding()) {
        return;
    }
    LaunchEncoders();
    if (!state->WaitPrepared(encoders.size())) {
        return;
    }
    OpenMuxer();
    BeginProgress();
    events.Started();
    WritePackets(Ending::None);
    if (state->IsEnding() && !KeepWhatIsQueued()) {
        return;
    }
    FinishMuxer();
}

bool ProcessingRun::KeepWhatIsQueued() {
    if (!state->WaitWhetherKept(DISCARD_GRACE)) {
        return false;
    }
    WritePackets(Ending::Stop);
    return state->GetEnding() == Ending::Stop;
}

void ProcessingRun::LaunchEncoders() {
    for (const auto& stream : streams) {
        if (const auto& source = stream->GetPacketSource(); source && streams.size() > 1) {
            source->RunBesideOthers();
        }
    }
    for (const auto& encoder : encoders) {
        encoder->Start([run = weak_from_this()](std::exception_ptr cause) { OnEncoderFailure(run, std::move(cause)); });
    }
}

void ProcessingRun::OnEncoderFailure(const std::weak_ptr<ProcessingRun>& run, std::exception_ptr cause) {
    const std::shared_ptr<ProcessingRun> held = run.lock();
    if (held && held->state->FailEncoder(std::move(cause))) {
        held->InterruptEncoders();
    }
}

void ProcessingRun::OpenMuxer() {
    if (muxer == nullptr) {
        return;
    }
    muxerInUse = true;
    for (const auto& encoder : encoders) {
        muxerIndices.push_back(muxer->AddStream(encoder->GetFormat()));
    }
    muxer->Open();
}

void ProcessingRun::BeginProgress() {
    std::vector<std::int64_t> durations;
    for (const auto& encoder : encoders) {
        durations.push_back(encoder->GetDuration());
    }
    progress.emplace(durations, ProgressMeter::Clock::now());
}

void ProcessingRun::WritePackets(Ending during) {
    while (state->GetEnding() == during) {
        const auto track = FindNextTrack();
        // Asked again: an ending wakes the wait for packets and makes tracks look ended that are not.
        if (!track || state->GetEnding() != during) {
            return;
        }
        WriteFrom(*track);
        if (during == Ending::None) {
            ReportProgress();
        }
    }
}

// Waits for a packet of every track that has not ended, so that the muxer gets them in the order of time and has little
// to hold back. The encoders do not depend on each other, so a full queue beside an empty one is no deadlock.
std::optional<std::size_t> ProcessingRun::FindNextTrack() {
    std::optional<std::size_t> next;
    std::int64_t earliest = 0;
    for (std::size_t track = 0; track < encoders.size(); ++track) {
        const auto packet = encoders[track]->GetQueue().WaitFront();
        if (packet == nullptr) {
            progress->End(track);
        } else if (!next || packet->GetDecodeTime() < earliest) {
            next = track;
            earliest = packet->GetDecodeTime();
        }
    }
    return next;
}

void ProcessingRun::WriteFrom(std::size_t track) {
    PacketQueue& queue = encoders[track]->GetQueue();
    const auto packet = queue.WaitFront();
    queue.PopFront();
    // Read before the packet is handed over: what the muxer makes of its times is the muxer's affair.
    const std::int64_t end = packet->GetTime() + packet->GetDuration();
    if (muxer != nullptr) {
        muxer->Write(muxerIndices[track], packet);
    }
    progress->Advance(track, end);
}

void ProcessingRun::ReportProgress() {
    const auto now = ProgressMeter::Clock::now();
    if (progress->IsDue(now)) {
        events.Progress(progress->Report(now));
    }
}

void ProcessingRun::FinishMuxer() {
    if (muxer != nullptr) {
        muxer->Finish();
        muxerInUse = false;
    }
    if (!state->IsEnding()) {
        events.Progress(progress->Complete(ProgressMeter::Clock::now()));
    }
}

void ProcessingRun::AbortMuxer() noexcept {
    if (muxerInUse) {
        muxerInUse = false;
        muxer->Abort();
    }
}

void ProcessingRun::Conclude() {
    if (state->IsEnding()) {
        InterruptEncoders();
        AbortMuxer();
    }
    state->WaitEncodersLeft(ENCODER_PATIENCE);
    const std::exception_ptr error = state->Close();
    for (const auto& encoder : encoders) {
        encoder->GetQueue().Clear();
    }
    if (error) {
        events.Failed(error);
    } else {
        events.Finished();
    }
}

// Once, however many ask for it: a second time could reach streams that the next run has reset already.
void ProcessingRun::InterruptEncoders() noexcept {
    if (interrupted.exchange(true)) {
        return;
    }
    for (const auto& encoder : encoders) {
        encoder->Interrupt();
    }
}

void ProcessingRun::JoinEncoders() {
    const auto deadline = std::chrono::steady_clock::now() + JOIN_PATIENCE;
    for (const auto& encoder : encoders) {
        encoder->JoinOrLeave(deadline);
    }
}

} // namespace Kestra::Proc
