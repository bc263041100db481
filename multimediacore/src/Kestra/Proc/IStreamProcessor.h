// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IStreamProcessor: runs encoders into a muxer on its own threads.
#pragma once

#include "Kestra/Proc/IMuxer.h"
#include "Kestra/Proc/IProcessingEvents.h"
#include "Kestra/Proc/IStream.h"
#include <vector>

namespace Kestra::Proc {

/// One run: SetEventsReceiver, Initialize, Start, then events. All operations are called on one thread and return at
/// once; they throw only for misuse. What goes wrong in the run is onError. The last release detaches the receiver,
/// interrupts the run and joins every thread that comes out of its calls within some seconds; one that hangs in a
/// foreign call is left, alone with what it holds. No event comes after it in either case.
class KESTRA_EXPORT IStreamProcessor : public virtual IRefCountable {
public:
    ~IStreamProcessor() override;

    /// `events` is borrowed until the processor is released or another receiver is set; null detaches.
    virtual void SetEventsReceiver(IProcessingEvents* events) = 0;
    /// First launching call: resets the streams to their start.
    virtual void Initialize() = 0;
    /// Second launching call: starts the threads.
    virtual void Start() = 0;
    /// Asks the run to end early; onFinished follows within 0.2 s. Unless Discard follows at once, what is queued is
    /// written and the output completed. Before Start and after the end it does nothing.
    virtual void Stop() = 0;
    /// After Stop: gives up what is queued and closes the output without completing it.
    virtual void Discard() = 0;
};

/// `streams` are raw streams (encoders), video first; `muxer` may be null: packets are then made and dropped. Further
/// tracks of their packet sources run beside them, and come behind all of them in the file.
/// Throws std::invalid_argument for a stream that is null or not raw.
KESTRA_EXPORT boost::intrusive_ptr<IStreamProcessor>
CreateStreamProcessor(const std::vector<boost::intrusive_ptr<IStream>>& streams,
                      const boost::intrusive_ptr<IMuxer>& muxer);

} // namespace Kestra::Proc
