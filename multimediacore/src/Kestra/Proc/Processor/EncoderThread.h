// Kestra::Proc::EncoderThread: pulls the packets of one raw stream into a queue.
#pragma once

#include "Kestra/Proc/IStreamRaw.h"
#include "Kestra/Proc/Processor/PacketQueue.h"
#include "Kestra/Proc/Processor/RunState.h"
#include <functional>
#include <string>
#include <thread>

namespace Kestra::Proc {

/// Made, started and joined by the muxer's thread. `state` is borrowed and outlives it.
class EncoderThread {
public:
    /// Called on the encoder's thread with what the stream threw.
    using OnFailure = std::function<void(std::exception_ptr)>;

    EncoderThread(boost::intrusive_ptr<IStreamRaw> stream, RunState& state, OnFailure onFailure);

    /// Throws std::system_error when there is no thread to be had.
    void Start(const std::string& threadName);
    /// Does nothing when not started or joined already.
    void Join();
    /// Wakes whoever waits for the queue and the stream, for good. Thread-safe.
    void Interrupt() noexcept;

    PacketQueue& GetQueue() { return queue; }
    /// Both are known once the run's state says that the encoder is prepared.
    const boost::intrusive_ptr<Conf::IFormatCodec>& GetFormat() const { return format; }
    std::int64_t GetDuration() const { return duration; }

private:
    void Run(const std::string& threadName);
    void Prepare();
    void Encode();

    const boost::intrusive_ptr<IStreamRaw> stream;
    RunState& state;
    const OnFailure onFailure;
    PacketQueue queue;
    boost::intrusive_ptr<Conf::IFormatCodec> format;
    std::int64_t duration = TIME_UNKNOWN;
    std::thread thread;
};

} // namespace Kestra::Proc
