// SPDX-License-Identifier: GPL-3.0-or-later
// What a view does when it hears a message, and its hooks.
#pragma once

#include "Message/View.h"
#include <utility>

namespace Message {

template <class T>
void View<T>::notify(const Types::Add<T>& message) {
    addRequested(message.value);
}

template <class T>
void View<T>::notify(const Types::Added<T>& message) {
    observer.subscribe(message.object);
    table[message.object] = nullptr;
    appeared(message.object);
}

template <class T>
void View<T>::notify(const Types::Change<T>& message) {
    // Nothing is found after an object was observed or forgotten here that had been owned: its requests still arrive.
    T* mine = owned(message.object);
    if (!mine)
        return;
    T proposed(*message.value);
    changeRequested(mine, &proposed);
}

template <class T>
void View<T>::notify(const Types::Changed<T>& message) {
    altered(message.object, message.previous);
}

template <class T>
void View<T>::notify(const Types::Remove<T>& message) {
    if (T* mine = owned(message.object))
        removeRequested(mine);
}

template <class T>
void View<T>::notify(const Types::Removed<T>& message) {
    const T* object = message.object;
    if (!disappeared(object, observer.topicOf(object)))
        return;
    table.erase(object);
    observer.unsubscribe(object);
}

template <class T>
void View<T>::notify(const Types::Enumerate<T>&) {
    const Details::Lifeline::Watch alive(lifeline);
    // Over a copy, as those who hear the answers may change the table.
    for (const T* object : objects())
        if (alive && isOwned(object))
            owner.enumerator.publish(Types::Enumerated<T>(object));
}

template <class T>
void View<T>::added(const T*) {}
template <class T>
void View<T>::changed(const T*, const T*, const T*) {}
template <class T>
void View<T>::changed(const T*, const T*) {}
template <class T>
void View<T>::changed(const T*) {}
template <class T>
void View<T>::removed(const T*) {}

template <class T>
void View<T>::addRequested(T* object) {
    adopt(object);
}

template <class T>
void View<T>::changeRequested(T* object, T* proposed) {
    using std::swap;
    swap(*object, *proposed);
    if (altered(object, proposed))
        owner.publish(Types::Changed<T>(object, proposed));
}

template <class T>
void View<T>::removeRequested(T* object) {
    const PubSub::Object* const topic = object; // found through the object, which may be destroyed from here on
    const Details::Watch alive(lifeline, topic);
    owner.publish(Types::Removed<T>(object));
    if (!alive.seesView() || (alive.seesObject() && !disappeared(object, topic)))
        return;
    // Erased before it is unsubscribed; a removal by the owner itself does the reverse.
    table.erase(object);
    owner.unsubscribe(topic);
}

template <class T>
bool View<T>::appeared(const T* object) {
    const auto alive = watch(object);
    added(object);
    if (!alive)
        return false;
    const T empty{};
    changed(object, &empty, object);
    if (!alive)
        return false;
    changed(object);
    return bool(alive);
}

template <class T>
bool View<T>::altered(const T* object, const T* before) {
    const auto alive = watch(object);
    changed(object, before, object);
    if (!alive)
        return false;
    changed(object, before);
    if (!alive)
        return false;
    changed(object);
    return bool(alive);
}

template <class T>
bool View<T>::disappeared(const T* object, const PubSub::Object* topic) {
    const Details::Watch alive(lifeline, topic);
    const T empty{};
    changed(object, object, &empty);
    if (alive)
        changed(object);
    if (alive)
        removed(object);
    return alive.seesView();
}

template <class T>
void View<T>::Observer::subscribe(const T* object) {
    subscribe(object, object);
}

template <class T>
void View<T>::Observer::subscribe(const T* object, const PubSub::Object* topic) {
    const PubSub::Object*& known = topics[object];
    if (known && known != topic)
        PubSub::Details::SubscriberBase::unsubscribe(known); // an earlier object at this address
    known = topic;
    PubSub::Details::SubscriberBase::subscribe(topic);
}

template <class T>
void View<T>::Observer::unsubscribe(const T* object) {
    const auto found = topics.find(object);
    if (found == topics.end())
        return;
    PubSub::Details::SubscriberBase::unsubscribe(found->second);
    topics.erase(found);
}

template <class T>
const PubSub::Object* View<T>::Observer::topicOf(const T* object) const {
    const auto found = topics.find(object);
    return found == topics.end() ? nullptr : found->second;
}

template <class T>
void View<T>::Observer::subscribeLike(const Observer& other, const T* object) {
    const PubSub::Object* topic = other.topicOf(object);
    subscribe(object, topic ? topic : object);
}

} // namespace Message
