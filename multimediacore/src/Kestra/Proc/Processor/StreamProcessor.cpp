// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Processor/StreamProcessor.h"
#include "Kestra/Base/Exception.h"
#include "Kestra/Proc/PacketStream.h"
#include "Kestra/Proc/Processor/DeferredRelease.h"
#include "Kestra/Proc/Processor/ProcessingRun.h"
#include <exception>
#include <stdexcept>

namespace Kestra::Proc {
namespace {

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
    : rest(std::make_shared<RunRest>(std::make_shared<ProcessingRun>(WithFurtherTracks(streams), muxer))) {}

StreamProcessor::~StreamProcessor() {
    ProcessingRun& run = rest->GetRun();
    run.GetEvents().SetReceiver(nullptr);
    if (!rest->IsStarted()) {
        return;
    }
    run.Abandon();
    if (!run.IsOwnThread()) {
        rest->BeginWait();
        DeferredRelease::Accept(rest); // or else it is waited for here
        return;
    }
    // The last release came from the run itself, and a thread cannot wait for its own end.
    if (rest->IsCurrentThread()) {
        run.FinishInsideEvent();
    }
    rest->Leave();
}

void StreamProcessor::SetEventsReceiver(IProcessingEvents* events) {
    rest->GetRun().GetEvents().SetReceiver(events);
}

void StreamProcessor::Initialize() {
    if (phase != Phase::Made) {
        KESTRA_THROW(std::logic_error("A stream processor runs once: Initialize was called a second time."));
    }
    phase = Phase::Initialized;
    rest->GetRun().ResetStreams();
}

void StreamProcessor::Start() {
    if (phase != Phase::Initialized) {
        KESTRA_THROW(std::logic_error("A stream processor is started once, after Initialize."));
    }
    phase = Phase::Started;
    try {
        rest->Start();
    } catch (const std::exception&) { // no thread is to be had, or no memory for one
        rest->GetRun().Refuse(std::current_exception());
    }
}

void StreamProcessor::Stop() {
    if (phase == Phase::Started) {
        rest->GetRun().Stop();
    }
}

void StreamProcessor::Discard() {
    if (phase == Phase::Started) {
        rest->GetRun().Discard();
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
