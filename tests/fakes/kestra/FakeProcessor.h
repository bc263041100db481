// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::FakeProcessor: a stream processor that plays a script instead of running encoders.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IStreamProcessor.h"
#include "fakes/kestra/CallLog.h"
#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace Kestra::Fakes {

/// Calls its events from a real second thread and keeps the processor's promise: none after the receiver is detached or
/// the processor is gone. Records in its log: "SetEventsReceiver", "SetEventsReceiver(null)", "Initialize", "Start",
/// "Stop", "Discard", "~FakeProcessor". Script it before it is started.
class FakeProcessor : public Proc::IStreamProcessor, public RefCountImpl {
public:
    using Event = std::function<void(Proc::IProcessingEvents&)>;

    explicit FakeProcessor(std::shared_ptr<CallLog> log = std::make_shared<CallLog>());
    ~FakeProcessor() override;

    static Event Started();
    static Event Progress(std::int32_t percent, std::int64_t position, std::int64_t duration,
                          std::int32_t elapsedSeconds, std::int32_t remainingSeconds);
    static Event Error(std::exception_ptr error);
    static Event Paused();
    static Event Resumed();
    static Event Finished();

    /// What Start plays. Nothing unless set.
    void PlayOnStart(std::vector<Event> events) { onStart = std::move(events); }
    /// What Stop plays. {Finished()} unless set.
    void PlayOnStop(std::vector<Event> events) { onStop = std::move(events); }
    /// What the call then throws, after it has been recorded and instead of what it does.
    void ThrowFromSetEventsReceiver(std::exception_ptr error) { setReceiverError = std::move(error); }
    void ThrowFromInitialize(std::exception_ptr error) { initializeError = std::move(error); }
    void ThrowFromStart(std::exception_ptr error) { startError = std::move(error); }
    void ThrowFromStop(std::exception_ptr error) { stopError = std::move(error); }

    /// Hands one event to the second thread now; returns before it is delivered.
    void Emit(Event event);
    /// Until the second thread has delivered everything that it was handed.
    void WaitUntilDelivered() const;

    const std::shared_ptr<CallLog>& GetLog() const { return log; }
    Proc::IProcessingEvents* GetEventsReceiver() const;

    void SetEventsReceiver(Proc::IProcessingEvents* events) override;
    void Initialize() override;
    void Start() override;
    void Stop() override;
    void Discard() override;

private:
    class Player;

    std::shared_ptr<CallLog> log;
    std::vector<Event> onStart;
    std::vector<Event> onStop;
    std::exception_ptr setReceiverError;
    std::exception_ptr initializeError;
    std::exception_ptr startError;
    std::exception_ptr stopError;
    std::shared_ptr<Player> player;
    std::thread thread;
};

} // namespace Kestra::Fakes
