// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::StreamProcessor: the engine's own stream processor.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IStreamProcessor.h"
#include "Kestra/Proc/IStreamRaw.h"
#include "Kestra/Proc/Processor/RunRest.h"

namespace Kestra::Proc {

/// The user's side of a run; what runs is ProcessingRun, which the thread holds too: the rest.
class StreamProcessor : public IStreamProcessor, public RefCountImpl {
public:
    StreamProcessor(const std::vector<boost::intrusive_ptr<IStreamRaw>>& streams,
                    const boost::intrusive_ptr<IMuxer>& muxer);
    ~StreamProcessor() override;

    void SetEventsReceiver(IProcessingEvents* events) override;
    void Initialize() override;
    void Start() override;
    void Stop() override;
    void Discard() override;

private:
    enum class Phase { Made, Initialized, Started };

    std::shared_ptr<RunRest> rest;
    Phase phase = Phase::Made;
};

} // namespace Kestra::Proc
