// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::RunState: how a run stands, shared by its threads and its user.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>

namespace Kestra::Proc {

/// Why a run no longer goes on.
enum class Ending {
    None,    ///< it does
    Stop,    ///< asked to; what is queued is kept unless Discard follows at once
    Discard, ///< asked to, and the output given up
    Error,   ///< something failed; the first failure counts
};

/// Thread-safe. An ending, once begun, is not taken back; only Stop may still become Discard or Error.
class RunState {
public:
    Ending GetEnding() const;
    bool IsEnding() const { return GetEnding() != Ending::None; }

    /// False, and without effect, when the run is ending or over already.
    bool RequestStop();
    /// Possible after a stop only.
    void RequestDiscard();
    /// The processor is gone: stops and discards in one. False when the run was ending or over already.
    bool Abandon();
    /// An encoder failed. False when it does not count: the run was ending already, and interrupted encoders may throw.
    bool FailEncoder(std::exception_ptr cause);
    /// The output, or the run as a whole, failed. Counts after a stop too, whose output is to be kept.
    void FailRun(std::exception_ptr cause);
    /// Decides the last event: what failed, or null. From here on nothing can end the run any more.
    std::exception_ptr Close();

    /// After a stop, gives Discard a moment to follow; true when the output is to be kept.
    bool WaitWhetherKept(std::chrono::milliseconds grace) const;

    void EncoderEntered();
    void EncoderPrepared();
    void EncoderLeft();
    /// True once `count` encoders are prepared, false when the run is ending before that.
    bool WaitPrepared(std::size_t count) const;
    /// Until no encoder thread uses its stream any more; gives up after `patience`.
    void WaitEncodersLeft(std::chrono::milliseconds patience) const;

    /// Marks the calling thread as one of the run's own.
    void EnterThread() const noexcept;
    bool IsOwnThread() const noexcept;

private:
    mutable std::mutex mutex;
    mutable std::condition_variable changed;
    Ending ending = Ending::None;
    bool closed = false;
    std::exception_ptr error;
    std::size_t prepared = 0;
    std::size_t running = 0;
};

} // namespace Kestra::Proc
