// SPDX-License-Identifier: GPL-3.0-or-later
// Messages a second over the bus, beside a directly connected Qt signal in the same run.
#include "Message/View.h"
#include <QObject>
#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

namespace {

struct Item : virtual PubSub::Object {
    int number = 0;
};
using Changed = Message::Types::Changed<Item>;

class Counter : public PubSub::Subscriber<Changed> {
public:
    void notify(const Changed& message) override { sum += message.object->number; }
    long sum = 0;
};

class Emitter : public QObject {
    Q_OBJECT
Q_SIGNALS:
    void changed(const Item* object, const Item* before);
};

class Receiver : public QObject {
    Q_OBJECT
public:
    void onChanged(const Item* object, const Item*) { sum += object->number; }
    long sum = 0;
};

void QtDirectSignal(benchmark::State& state) {
    Emitter emitter;
    std::vector<std::unique_ptr<Receiver>> receivers;
    for (long count = 0; count < state.range(0); ++count) {
        receivers.push_back(std::make_unique<Receiver>());
        QObject::connect(&emitter, &Emitter::changed, receivers.back().get(), &Receiver::onChanged,
                         Qt::DirectConnection);
    }
    const Item item;
    for (auto _ : state)
        Q_EMIT emitter.changed(&item, &item);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(QtDirectSignal)->Arg(1)->Arg(4)->Arg(32);

void BusMessage(benchmark::State& state) {
    const Item item;
    std::vector<std::unique_ptr<Counter>> counters;
    for (long count = 0; count < state.range(0); ++count) {
        counters.push_back(std::make_unique<Counter>());
        counters.back()->subscribe(&item);
    }
    PubSub::Publisher<Changed> publisher;
    for (auto _ : state)
        publisher.publish(Changed(&item, &item));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BusMessage)->Arg(1)->Arg(4)->Arg(32);

/// One message to each of many observed objects in turn.
void BusMessageOverManyObjects(benchmark::State& state) {
    const std::vector<Item> items(static_cast<std::size_t>(state.range(0)));
    Counter counter;
    for (const Item& item : items)
        counter.subscribe(&item);
    PubSub::Publisher<Changed> publisher;
    std::size_t next = 0;
    for (auto _ : state) {
        publisher.publish(Changed(&items[next], &items[next]));
        next = next + 1 == items.size() ? 0 : next + 1;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BusMessageOverManyObjects)->Arg(1)->Arg(1000)->Arg(100'000);

/// A whole change by the owner: copy, hooks, Changed to one observer.
void ViewChange(benchmark::State& state) {
    Item item;
    Message::View<Item> owner;
    owner.own(&item);
    Message::View<Item> observer(&item);
    for (auto _ : state)
        ++owner.change(&item)->number;
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(ViewChange);

/// A request for a change and the owner's answer.
void ViewChangeRequest(benchmark::State& state) {
    Item item;
    Message::View<Item> owner;
    owner.own(&item);
    Message::View<Item> observer(&item);
    for (auto _ : state)
        ++observer.change(&item)->number;
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(ViewChangeRequest);

void ObserveAndForget(benchmark::State& state) {
    std::vector<Item> items(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        Message::View<Item> view;
        for (const Item& item : items)
            view.observe(&item);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ObserveAndForget)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

#include "BusBenchmark.moc"
