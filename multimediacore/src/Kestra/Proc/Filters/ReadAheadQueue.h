// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::ReadAheadQueue: a thread that reads a stream ahead of its consumer.
#pragma once

#include "Kestra/Base/LeavableThread.h"
#include "Kestra/Proc/BoundedQueue.h"
#include <functional>
#include <memory>
#include <string>

namespace Kestra::Proc {

/// Start, Pop and Stop belong to the consumer's thread; Interrupt is thread-safe. The reader runs on a thread of this
/// queue's own, between Start and Stop, and on no other. It holds what it reads from: a thread that hangs in it is left
/// after an interrupt, and after that nothing can be read here any more.
class ReadAheadQueue {
public:
    using Reader = std::function<boost::intrusive_ptr<IData>()>;

    /// Begins to read a piece only where there is room for one more: nobody knows its size before.
    ReadAheadQueue(Reader reader, const QueueLimits& limits);
    /// Interrupts and stops.
    ~ReadAheadQueue();
    ReadAheadQueue(const ReadAheadQueue&) = delete;
    ReadAheadQueue& operator=(const ReadAheadQueue&) = delete;

    /// The source is the thread's, also when it has been left.
    bool IsRunning() const { return left || thread.IsRunning(); }
    void Start(const std::string& threadName);
    /// Waits for the piece that is being read, then forgets everything. Does nothing when not running. Throws
    /// ProcException (Stalled) when the reader has been left: once interrupted, it is waited for some seconds only.
    void Stop();
    /// The next piece, null at the end; throws what the reader threw, after the pieces before it, and Interrupted.
    boost::intrusive_ptr<IData> Pop();
    /// Makes Pop throw Interrupted until ClearInterrupt, and bounds the wait of Stop.
    void Interrupt();
    /// After Stop.
    void ClearInterrupt();

private:
    struct Shared;

    /// False when it has been left.
    bool Finish();

    /// The thread's too.
    const std::shared_ptr<Shared> shared;
    LeavableThread thread;
    bool left = false;
};

} // namespace Kestra::Proc
