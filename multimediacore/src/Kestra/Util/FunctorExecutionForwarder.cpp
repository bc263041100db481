#include "Kestra/Util/FunctorExecutionForwarder.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <deque>
#include <mutex>
#include <utility>

namespace Kestra::Util {

namespace {

/// One event for each functor, so that functors keep their place among the thread's other events.
QEvent::Type eventType() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

} // namespace

/// Qt drops the posted events of a receiver that is destroyed: that is what keeps late functors from running. They wait
/// here and not in their events, so that our own lock orders what one thread writes before what the other reads.
class FunctorExecutionForwarder::Receiver final : public QObject {
public:
    void Take(std::function<void()> functor) {
        const std::lock_guard<std::mutex> lock(mutex);
        waiting.push_back(std::move(functor));
        QCoreApplication::postEvent(this, new QEvent(eventType()));
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
    std::function<void()> Next() {
        const std::lock_guard<std::mutex> lock(mutex);
        std::function<void()> first = std::move(waiting.front());
        waiting.pop_front();
        return first;
    }

    std::mutex mutex;
    std::deque<std::function<void()>> waiting;
};

FunctorExecutionForwarder::FunctorExecutionForwarder()
    : receiver(std::make_unique<Receiver>()) {}

FunctorExecutionForwarder::~FunctorExecutionForwarder() = default;

void FunctorExecutionForwarder::Forward(std::function<void()> functor) {
    receiver->Take(std::move(functor));
}

} // namespace Kestra::Util
