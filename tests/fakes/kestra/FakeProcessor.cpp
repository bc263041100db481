// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/FakeProcessor.h"
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace Kestra::Fakes {
namespace {

void ThrowIfSet(const std::exception_ptr& error) {
    if (error) {
        std::rethrow_exception(error);
    }
}

} // namespace

/// The second thread's side: it outlives the processor when the last release happens inside an event.
class FakeProcessor::Player {
public:
    void Hand(Event event) {
        const std::lock_guard<std::mutex> lock(queueMutex);
        events.push_back(std::move(event));
        changed.notify_all();
    }

    void SetReceiver(Proc::IProcessingEvents* newReceiver) {
        // Before the lock, so that no further event slips in while this thread waits for the one under way.
        receiver = newReceiver;
        const std::lock_guard<std::recursive_mutex> lock(deliveryMutex);
    }

    Proc::IProcessingEvents* GetReceiver() const { return receiver; }

    void End() {
        const std::lock_guard<std::mutex> lock(queueMutex);
        ended = true;
        changed.notify_all();
    }

    void WaitUntilDelivered() {
        std::unique_lock<std::mutex> lock(queueMutex);
        changed.wait(lock, [this] { return events.empty() || ended; });
    }

    void Run() {
        std::unique_lock<std::mutex> lock(queueMutex);
        for (;;) {
            changed.wait(lock, [this] { return !events.empty() || ended; });
            if (ended) {
                return;
            }
            const Event event = events.front();
            lock.unlock();
            Deliver(event);
            lock.lock();
            // Only now: an event counts as waiting until it has been delivered.
            events.pop_front();
            changed.notify_all();
        }
    }

private:
    // Held during the event, so that detaching waits for it; recursive, since an event may detach.
    void Deliver(const Event& event) {
        const std::lock_guard<std::recursive_mutex> lock(deliveryMutex);
        if (Proc::IProcessingEvents* current = receiver) {
            event(*current);
        }
    }

    std::mutex queueMutex;
    std::condition_variable changed;
    std::deque<Event> events;
    bool ended = false;

    std::recursive_mutex deliveryMutex;
    std::atomic<Proc::IProcessingEvents*> receiver{nullptr};
};

FakeProcessor::FakeProcessor(std::shared_ptr<CallLog> callLog)
    : log(std::move(callLog))
    , onStop{Finished()}
    , player(std::make_shared<Player>())
    , thread([held = player] { held->Run(); }) {}

FakeProcessor::~FakeProcessor() {
    log->Add("~FakeProcessor");
    player->SetReceiver(nullptr);
    player->End();
    if (thread.get_id() == std::this_thread::get_id()) {
        thread.detach();
    } else {
        thread.join();
    }
}

FakeProcessor::Event FakeProcessor::Started() {
    return [](Proc::IProcessingEvents& events) { events.onStarted(); };
}

FakeProcessor::Event FakeProcessor::Progress(std::int32_t percent, std::int64_t position, std::int64_t duration,
                                             std::int32_t elapsedSeconds, std::int32_t remainingSeconds) {
    return [=](Proc::IProcessingEvents& events) {
        events.onProgress(percent, position, duration, elapsedSeconds, remainingSeconds);
    };
}

FakeProcessor::Event FakeProcessor::Error(std::exception_ptr error) {
    return [error = std::move(error)](Proc::IProcessingEvents& events) { events.onError(error); };
}

FakeProcessor::Event FakeProcessor::Paused() {
    return [](Proc::IProcessingEvents& events) { events.onPaused(); };
}

FakeProcessor::Event FakeProcessor::Resumed() {
    return [](Proc::IProcessingEvents& events) { events.onResumed(); };
}

FakeProcessor::Event FakeProcessor::Finished() {
    return [](Proc::IProcessingEvents& events) { events.onFinished(); };
}

void FakeProcessor::Emit(Event event) {
    player->Hand(std::move(event));
}

void FakeProcessor::WaitUntilDelivered() const {
    player->WaitUntilDelivered();
}

Proc::IProcessingEvents* FakeProcessor::GetEventsReceiver() const {
    return player->GetReceiver();
}

void FakeProcessor::SetEventsReceiver(Proc::IProcessingEvents* events) {
    log->Add(events != nullptr ? "SetEventsReceiver" : "SetEventsReceiver(null)");
    ThrowIfSet(setReceiverError);
    player->SetReceiver(events);
}

void FakeProcessor::Initialize() {
    log->Add("Initialize");
    ThrowIfSet(initializeError);
}

void FakeProcessor::Start() {
    log->Add("Start");
    ThrowIfSet(startError);
    for (const Event& event : onStart) {
        Emit(event);
    }
}

void FakeProcessor::Stop() {
    log->Add("Stop");
    ThrowIfSet(stopError);
    for (const Event& event : onStop) {
        Emit(event);
    }
}

void FakeProcessor::Discard() {
    log->Add("Discard");
}

} // namespace Kestra::Fakes
