// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::BoundedQueue: pieces between the thread that makes them and the one that takes them.
#pragma once

#include "Kestra/Proc/IDataRaw.h"
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <limits>
#include <mutex>
#include <utility>

namespace Kestra::Proc {

/// What a queue holds at most. A single piece fits always, so that nobody waits for ever.
struct QueueLimits {
    std::size_t bytes = std::numeric_limits<std::size_t>::max();
    /// From the first piece's time to the last one's, in engine time.
    std::int64_t time = std::numeric_limits<std::int64_t>::max();
    std::size_t pieces = std::numeric_limits<std::size_t>::max();
    /// Who waits for room in a full queue waits until half of it is empty: to wake a thread for each piece takes longer
    /// than to hand over a small one.
    bool wakeAtHalf = false;
};

/// The time by which a queue is ordered.
inline std::int64_t TimeInQueue(const IData& piece) {
    return piece.GetTime();
}
inline std::int64_t TimeInQueue(const IDataRaw& packet) {
    return packet.GetDecodeTime();
}

/// One thread, the maker, calls WaitForRoom, Push, End and Fail; one other, the taker, calls WaitFront, PopFront and
/// Pop; each waits for the other. Cancel and Clear may come from any thread at any time. Pieces are let go of outside
/// the lock.
///
/// The taker gets what was pushed, in its order, and then what the queue ended with: null after End, the exception
/// after Fail, as often as it asks. Cancel ends both sides' waiting: the maker is refused, and the taker gets null
/// behind the last piece, whatever the maker had said. Whoever cancels knows that this null is not the maker's end.
template <class Piece>
class BoundedQueue {
public:
    using Pointer = boost::intrusive_ptr<Piece>;

    explicit BoundedQueue(const QueueLimits& limits)
        : limits(limits) {}

    /// Waits until a piece may be made that nobody knows the size of yet. False once the queue is cancelled.
    bool WaitForRoom() {
        std::unique_lock<std::mutex> lock(mutex);
        roomOrCancelled.wait(lock, [this] { return cancelled || HasRoom(); });
        return !cancelled;
    }

    /// Waits for room for this piece. False, and the piece is dropped, once the queue is cancelled.
    bool Push(Pointer piece) {
        std::unique_lock<std::mutex> lock(mutex);
        if (!cancelled && !HasRoomFor(*piece))
            roomOrCancelled.wait(lock, [&] { return cancelled || (HasRoomFor(*piece) && IsDrained()); });
        if (cancelled)
            return false;
        const std::size_t size = piece->GetByteSize();
        pieces.push_back(std::move(piece));
        bytes += size;
        pieceOrEnd.notify_one();
        return true;
    }

    /// No piece follows.
    void End() { Fail(nullptr); }

    /// No piece follows, because of `cause`; null is End.
    void Fail(std::exception_ptr cause) {
        const std::lock_guard<std::mutex> lock(mutex);
        ended = true;
        error = std::move(cause);
        pieceOrEnd.notify_one();
    }

    /// Waits for the next piece, which stays in the queue. Null when none follows.
    Pointer WaitFront() {
        std::unique_lock<std::mutex> lock(mutex);
        WaitForPiece(lock);
        return pieces.empty() ? nullptr : pieces.front();
    }

    /// Takes what WaitFront returned.
    void PopFront() {
        Pointer taken;
        const std::lock_guard<std::mutex> lock(mutex);
        taken = TakeFront();
    }

    /// Waits for the next piece and takes it. Null when none follows.
    Pointer Pop() {
        std::unique_lock<std::mutex> lock(mutex);
        WaitForPiece(lock);
        return TakeFront();
    }

    /// Wakes both sides, until Reset: nothing more comes in, what is queued can still be taken.
    void Cancel() {
        const std::lock_guard<std::mutex> lock(mutex);
        cancelled = true;
        roomOrCancelled.notify_all();
        pieceOrEnd.notify_all();
    }

    /// Lets go of what is queued.
    void Clear() {
        // Outside the lock, and one by one: another queue to hold them would take memory, of which there may be none.
        for (Pointer dropped;; dropped.reset()) {
            const std::lock_guard<std::mutex> lock(mutex);
            if (pieces.empty())
                return roomOrCancelled.notify_all();
            dropped = TakeFront();
        }
    }

    /// As it was made. Only while it has neither maker nor taker.
    void Reset() {
        Clear();
        const std::lock_guard<std::mutex> lock(mutex);
        ended = false;
        cancelled = false;
        error = nullptr;
    }

private:
    void WaitForPiece(std::unique_lock<std::mutex>& lock) {
        pieceOrEnd.wait(lock, [this] { return !pieces.empty() || ended || cancelled; });
        if (pieces.empty() && error && !cancelled)
            std::rethrow_exception(error);
    }

    Pointer TakeFront() {
        if (pieces.empty())
            return nullptr;
        Pointer taken = std::move(pieces.front());
        pieces.pop_front();
        bytes -= taken->GetByteSize();
        if (IsDrained())
            roomOrCancelled.notify_one();
        return taken;
    }

    bool IsDrained() const {
        return !limits.wakeAtHalf || pieces.empty() ||
               (pieces.size() <= limits.pieces / 2 && bytes <= limits.bytes / 2 &&
                TimeInQueue(*pieces.back()) - TimeInQueue(*pieces.front()) <= limits.time / 2);
    }

    bool HasRoom() const {
        return pieces.empty() || (pieces.size() < limits.pieces && bytes < limits.bytes &&
                                  TimeInQueue(*pieces.back()) - TimeInQueue(*pieces.front()) < limits.time);
    }

    bool HasRoomFor(const Piece& next) const {
        return pieces.empty() || (pieces.size() < limits.pieces && bytes + next.GetByteSize() <= limits.bytes &&
                                  TimeInQueue(next) - TimeInQueue(*pieces.front()) <= limits.time);
    }

    const QueueLimits limits;
    std::mutex mutex; ///< guards what follows
    std::condition_variable roomOrCancelled;
    std::condition_variable pieceOrEnd;
    std::deque<Pointer> pieces;
    std::size_t bytes = 0;
    std::exception_ptr error;
    bool ended = false;
    bool cancelled = false;
};

} // namespace Kestra::Proc
