// SPDX-License-Identifier: GPL-3.0-or-later
// How a view finds what all views own.
#pragma once

#include "Message/View.h"
#include <set>
#include <utility>

namespace Message {

/// Gathers the answers to one Enumerate.
template <class T>
class View<T>::Enumerator : public PubSub::Publisher<Types::Enumerate<T>>,
                            public PubSub::Subscriber<Types::Enumerated<T>> {
public:
    Enumerator() { this->subscribeAll(typeid(T)); }
    void notify(const Types::Enumerated<T>& message) override { found.insert(message.object); }

    std::set<const T*> found;
};

template <class T>
std::set<const T*> View<T>::enumerateAll() {
    Enumerator enumerator;
    enumerator.publish(Types::Enumerate<T>());
    return std::move(enumerator.found);
}

/// Takes out of a set what is removed from the model meanwhile.
template <class T>
class View<T>::Departures : public PubSub::Subscriber<Types::Removed<T>> {
public:
    explicit Departures(std::set<const T*>& objects)
        : waiting(objects) {
        this->subscribeAll(typeid(T));
    }
    void notify(const Types::Removed<T>& message) override { waiting.erase(message.object); }

private:
    std::set<const T*>& waiting;
};

template <class T>
void View<T>::observeAll() {
    const Details::Lifeline::Watch alive(lifeline);
    observeNew(true);
    std::set<const T*> waiting = enumerateAll();
    const Departures departures(waiting);
    while (alive && !waiting.empty()) {
        const T* next = *waiting.begin();
        waiting.erase(waiting.begin());
        observe(next);
    }
}

} // namespace Message
