#include "Kestra/Util/FunctorExecutionForwarder.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <utility>

namespace Kestra::Util {

namespace {

class FunctorEvent final : public QEvent {
public:
    explicit FunctorEvent(std::function<void()> call)
        : QEvent(eventType())
        , functor(std::move(call)) {}

    static QEvent::Type eventType() {
        static const int type = QEvent::registerEventType();
        return static_cast<QEvent::Type>(type);
    }

    std::function<void()> functor;
};

} // namespace

/// Qt drops the posted events of a receiver that is destroyed: that is what keeps late functors from running.
class FunctorExecutionForwarder::Receiver final : public QObject {
protected:
    void customEvent(QEvent* event) override {
        if (event->type() == FunctorEvent::eventType()) {
            // The functor may destroy this receiver; it lives in the event, which the event queue owns.
            static_cast<FunctorEvent*>(event)->functor();
        }
    }
};

FunctorExecutionForwarder::FunctorExecutionForwarder()
    : receiver(std::make_unique<Receiver>()) {}

FunctorExecutionForwarder::~FunctorExecutionForwarder() = default;

void FunctorExecutionForwarder::Forward(std::function<void()> functor) {
    QCoreApplication::postEvent(receiver.get(), new FunctorEvent(std::move(functor)));
}

} // namespace Kestra::Util
