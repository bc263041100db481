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
    if (!disappeared(object))
        return;
    table.erase(object);
    observer.unsubscribe(object);
}

template <class T>
void View<T>::notify(const Types::Enumerate<T>&) {
    const auto alive = watch();
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
    const auto alive = watch();
    const PubSub::Object* const topic = object; // found through the object, which removed() may destroy
    owner.publish(Types::Removed<T>(object));
    if (!alive || !disappeared(object))
        return;
    // Erased before it is unsubscribed; a removal by the owner itself does the reverse.
    table.erase(object);
    owner.unsubscribe(topic);
}

template <class T>
bool View<T>::appeared(const T* object) {
    const auto alive = watch();
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
    const auto alive = watch();
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
bool View<T>::disappeared(const T* object) {
    const auto alive = watch();
    const T empty{};
    changed(object, object, &empty);
    if (!alive)
        return false;
    changed(object);
    if (!alive)
        return false;
    removed(object);
    return bool(alive);
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
void View<T>::Observer::subscribeLike(const Observer& other, const T* object) {
    const auto found = other.topics.find(object);
    subscribe(object, found == other.topics.end() ? object : found->second);
}

} // namespace Message
