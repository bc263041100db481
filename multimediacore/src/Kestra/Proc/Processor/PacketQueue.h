// Kestra::Proc::PacketQueue: the packets between one encoder and the muxer.
#pragma once

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/IDataRaw.h"
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>

namespace Kestra::Proc {

/// Bounded by bytes and by time; a single packet fits always. One thread pushes, one other takes; Cancel, and Clear
/// after both have let go, may come from any thread.
class PacketQueue {
public:
    struct Limits {
        std::size_t bytes = std::size_t{32} * 1024 * 1024;
        /// From the first packet's decode time to the last one's, in engine time.
        std::int64_t time = 2 * TIME_BASE;
    };

    explicit PacketQueue(const Limits& limits);

    /// Waits for room. False, and the packet is dropped, once the queue is cancelled.
    bool Push(const boost::intrusive_ptr<IDataRaw>& packet);
    /// No packet follows.
    void End();
    /// Waits for the next packet, which stays in the queue. Null when none follows; after Cancel it does not wait.
    boost::intrusive_ptr<IDataRaw> WaitFront();
    /// Takes the packet that WaitFront returned.
    void PopFront();
    /// Wakes both sides for good: nothing more comes in, what is queued can still be taken.
    void Cancel();
    /// Lets go of what is queued.
    void Clear();

private:
    bool HasRoomFor(const IDataRaw& packet) const;

    const Limits limits;
    std::mutex mutex;
    std::condition_variable roomOrCancelled;
    std::condition_variable packetOrEnd;
    std::deque<boost::intrusive_ptr<IDataRaw>> packets;
    std::size_t bytes = 0;
    bool ended = false;
    bool cancelled = false;
};

} // namespace Kestra::Proc
