// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::EncoderThread: pulls the packets of one raw stream into a queue.
#pragma once

#include "Kestra/Base/LeavableThread.h"
#include "Kestra/Proc/IStreamRaw.h"
#include "Kestra/Proc/Processor/PacketQueue.h"
#include "Kestra/Proc/Processor/RunState.h"
#include <functional>
#include <memory>
#include <string>

namespace Kestra::Proc {

/// Started and joined by the muxer's thread. Its own thread shares it, and with it stream and state, so that one that
/// hangs in its stream can be left.
class EncoderThread : public std::enable_shared_from_this<EncoderThread> {
public:
    /// Called on the encoder's thread with what the stream threw, perhaps when the run is long gone.
    using OnFailure = std::function<void(std::exception_ptr)>;

    EncoderThread(boost::intrusive_ptr<IStreamRaw> stream, std::shared_ptr<RunState> state);

    /// Names the thread for its track. Throws std::system_error when there is no thread to be had.
    void Start(OnFailure onFailure);
    /// Waits until the thread has ended, or leaves it at the deadline. Does nothing when not started or joined already.
    void JoinOrLeave(std::chrono::steady_clock::time_point deadline);
    /// Wakes whoever waits for the queue and the stream, for good. Thread-safe.
    void Interrupt() noexcept;

    PacketQueue& GetQueue() { return queue; }
    /// Both are known once the run's state says that the encoder is prepared.
    const boost::intrusive_ptr<Conf::IFormatCodec>& GetFormat() const { return format; }
    std::int64_t GetDuration() const { return duration; }

private:
    std::string NameForThread() const;
    void Run();
    void RefuseInterruption() const;
    void Prepare();
    void Encode();

    const boost::intrusive_ptr<IStreamRaw> stream;
    const std::shared_ptr<RunState> state;
    PacketQueue queue;
    boost::intrusive_ptr<Conf::IFormatCodec> format;
    std::int64_t duration = TIME_UNKNOWN;
    LeavableThread thread;
};

} // namespace Kestra::Proc
