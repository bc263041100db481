// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Util/FunctorExecutionForwarder.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <list>
#include <mutex>
#include <new>
#include <optional>
#include <utility>

namespace Kestra::Util {

namespace {

/// One event for each functor, so that functors keep their place among the thread's other events.
QEvent::Type eventType() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

using Functors = std::list<std::function<void()>>;

/// All the memory that a functor needs on its way: there is the whole of it or none, as a functor that waits without an
/// event would be run by the next one's.
struct Place {
    Functors node = Functors(1);
    std::unique_ptr<QEvent> event = std::make_unique<QEvent>(eventType());
};

} // namespace

/// Qt drops the posted events of a receiver that is destroyed: that is what keeps late functors from running. They wait
/// here and not in their events, so that our own lock orders what one thread writes before what the other reads.
class KESTRAQT_NO_EXPORT FunctorExecutionForwarder::Receiver final : public QObject {
public:
    void Take(std::function<void()> functor) {
        const std::lock_guard<std::mutex> lock(mutex);
        Queue(std::move(functor), Place());
    }

    void TakeSurely(std::function<void()> functor) {
        const std::lock_guard<std::mutex> lock(mutex);
        Queue(std::move(functor), NewOrKeptPlace());
    }

    void KeepPlace() {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!kept)
            kept.emplace();
    }

protected:
    void customEvent(QEvent* event) override {
        if (event->type() != eventType())
            return;
        const std::function<void()> functor = Next();
        // The functor may destroy this receiver.
        functor();
    }

private:
    void Queue(std::function<void()> functor, Place place) {
        place.node.front().swap(functor);
        waiting.splice(waiting.end(), place.node);
        QCoreApplication::postEvent(this, place.event.release());
    }

    Place NewOrKeptPlace() {
        try {
            return Place();
        } catch (const std::bad_alloc&) {
            if (!kept)
                throw;
            Place last = std::move(*kept);
            kept.reset();
            return last;
        }
    }

    std::function<void()> Next() {
        const std::lock_guard<std::mutex> lock(mutex);
        std::function<void()> first = std::move(waiting.front());
        waiting.pop_front();
        return first;
    }

    std::mutex mutex;
    Functors waiting;
    std::optional<Place> kept;
};

FunctorExecutionForwarder::FunctorExecutionForwarder()
    : receiver(std::make_unique<Receiver>()) {}

FunctorExecutionForwarder::~FunctorExecutionForwarder() = default;

void FunctorExecutionForwarder::Forward(std::function<void()> functor) {
    receiver->Take(std::move(functor));
}

void FunctorExecutionForwarder::ForwardSurely(std::function<void()> functor) {
    receiver->TakeSurely(std::move(functor));
}

void FunctorExecutionForwarder::KeepPlace() {
    receiver->KeepPlace();
}

} // namespace Kestra::Util
