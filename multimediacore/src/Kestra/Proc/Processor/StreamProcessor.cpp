// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Processor/StreamProcessor.h"
#include "Kestra/Base/Exception.h"
#include "Kestra/Proc/PacketStream.h"
#include <exception>
#include <stdexcept>

namespace Kestra::Proc {
namespace {

// Longer than the run itself waits for its encoders.
constexpr std::chrono::seconds RELEASE_PATIENCE{3};

using RawStreams = std::vector<boost::intrusive_ptr<IStreamRaw>>;

/// Behind all that were given, so that these keep their places in the file.
RawStreams WithFurtherTracks(const RawStreams& streams) {
    RawStreams all = streams;
    for (const auto& stream : streams)
        if (const auto& source = stream->GetPacketSource())
            for (const auto& track : source->GetFurtherTracks())
                all.emplace_back(new PacketStream(track));
    return all;
}

} // namespace

StreamProcessor::StreamProcessor(const std::vector<boost::intrusive_ptr<IStreamRaw>>& streams,
                                 const boost::intrusive_ptr<IMuxer>& muxer)
    : run(std::make_shared<ProcessingRun>(WithFurtherTracks(streams), muxer)) {}

StreamProcessor::~StreamProcessor() {
    run->GetEvents().SetReceiver(nullptr);
    if (!thread.IsRunning()) {
        return;
    }
    run->Abandon();
    if (!run->IsOwnThread()) {
        // One that hangs in the output goes on by itself: it holds the run, and its receiver is detached.
        thread.JoinOrLeave(std::chrono::steady_clock::now() + RELEASE_PATIENCE);
        return;
    }
    // The last release came from the run itself, and a thread cannot wait for its own end.
    if (thread.IsCurrent()) {
        run->FinishInsideEvent();
    }
    thread.Leave();
}

void StreamProcessor::SetEventsReceiver(IProcessingEvents* events) {
    run->GetEvents().SetReceiver(events);
}

void StreamProcessor::Initialize() {
    if (phase != Phase::Made) {
        KESTRA_THROW(std::logic_error("A stream processor runs once: Initialize was called a second time."));
    }
    phase = Phase::Initialized;
    run->ResetStreams();
}

void StreamProcessor::Start() {
    if (phase != Phase::Initialized) {
        KESTRA_THROW(std::logic_error("A stream processor is started once, after Initialize."));
    }
    phase = Phase::Started;
    try {
        thread.Start("kestra-mux", [held = run] { held->Run(); });
    } catch (const std::exception&) { // no thread is to be had, or no memory for one
        run->Refuse(std::current_exception());
    }
}

void StreamProcessor::Stop() {
    if (phase == Phase::Started) {
        run->Stop();
    }
}

void StreamProcessor::Discard() {
    if (phase == Phase::Started) {
        run->Discard();
    }
}

boost::intrusive_ptr<IStreamProcessor> CreateStreamProcessor(const std::vector<boost::intrusive_ptr<IStream>>& streams,
                                                             const boost::intrusive_ptr<IMuxer>& muxer) {
    std::vector<boost::intrusive_ptr<IStreamRaw>> rawStreams;
    for (const auto& stream : streams) {
        auto* raw = dynamic_cast<IStreamRaw*>(stream.get());
        if (raw == nullptr) {
            KESTRA_THROW(std::invalid_argument("A stream processor takes raw streams only: stream " +
                                               std::to_string(rawStreams.size()) + " is " +
                                               (stream == nullptr ? "null." : "of another kind.")));
        }
        rawStreams.emplace_back(raw);
    }
    return boost::intrusive_ptr<IStreamProcessor>(new StreamProcessor(rawStreams, muxer));
}

} // namespace Kestra::Proc
