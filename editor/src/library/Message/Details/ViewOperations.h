// SPDX-License-Identifier: GPL-3.0-or-later
// What callers and chains ask of a view.
#pragma once

#include "Message/View.h"
#include <utility>

namespace Message {

template <class T>
View<T>::View(const T* object)
    : observer(this)
    , owner(this) {
    observe(object);
}

template <class T>
View<T>::View(const View& other)
    : observer(this)
    , owner(this) {
    for (const auto& entry : other.table) {
        table.emplace(entry.first, nullptr);
        observer.subscribeLike(other.observer, entry.first);
    }
    observeNew(other.observer.adder.isSubscribed(typeid(T)));
}

template <class T>
View<T>::~View() {
    while (!table.empty()) {
        const T* object = table.begin()->first;
        table.erase(table.begin());
        observer.unsubscribe(object);
        disappeared(object, nullptr); // of hooks that do nothing
    }
}

template <class T>
typename View<T>::SetterChain View<T>::add(T* object) {
    return SetterChain(this, object, false);
}

template <class T>
typename View<T>::SetterChain View<T>::own(T* object) {
    return SetterChain(this, object, true);
}

template <class T>
typename View<T>::SetterChain View<T>::change(const T* object) {
    SetterChain chain(this, object ? object : this->object());
    chain.commit = chain.source != nullptr;
    return chain;
}

template <class T>
void View<T>::remove(const T* object) {
    if (object)
        doRemove(object);
    else if (!table.empty())
        doRemove(table.begin()->second);
}

template <class T>
void View<T>::observe(const T* object) {
    if (!object)
        return;
    table[object] = nullptr;
    observer.subscribe(object);
    appeared(object);
}

template <class T>
void View<T>::observeNew(bool on) {
    if (on)
        observer.adder.subscribeAll(typeid(T));
    else
        observer.adder.unsubscribeAll(typeid(T));
}

template <class T>
void View<T>::processAddRequests(bool on) {
    if (on)
        owner.adder.subscribeAll(typeid(T));
    else
        owner.adder.unsubscribeAll(typeid(T));
}

template <class T>
void View<T>::forget(const T* object) {
    if (!object)
        return;
    const PubSub::Object* const topic = observer.topicOf(object);
    table.erase(object);
    observer.unsubscribe(object);
    disappeared(object, topic);
}

template <class T>
std::set<const T*> View<T>::objects() const {
    std::set<const T*> all;
    for (const auto& entry : table)
        all.insert(all.end(), entry.first);
    return all;
}

template <class T>
const T* View<T>::object() const {
    return table.empty() ? nullptr : table.begin()->first;
}

template <class T>
bool View<T>::isObserved(const T* object) const {
    return table.find(object) != table.end();
}

template <class T>
bool View<T>::isOwned(const T* object) const {
    return owned(object) != nullptr;
}

template <class T>
T* View<T>::ownedPtr(const T* object) const {
    return owned(object);
}

template <class T>
T* View<T>::ownerPointer(const T* object) const {
    const auto found = table.find(object);
    return found == table.end() ? const_cast<T*>(object) : found->second;
}

template <class T>
T* View<T>::owned(const T* object) const {
    const auto found = table.find(object);
    return found == table.end() ? nullptr : found->second;
}

template <class T>
void View<T>::doAdd(T* object, bool own) {
    if (!object)
        return;
    if (own)
        return adopt(object);
    // Before publishing: the answer of the owner comes inside the publish call.
    observer.subscribe(object);
    observer.publish(Types::Add<T>(object));
}

template <class T>
void View<T>::adopt(T* object) {
    table[object] = object;
    if (!appeared(object))
        return;
    owner.subscribe(object);
    owner.publish(Types::Added<T>(object));
}

template <class T>
void View<T>::doChange(const T* object, T* value) {
    T* mine = owned(object);
    if (!mine)
        return observer.publish(Types::Change<T>(object, value));
    // Moved, not copied: every field is overwritten next, and engine objects should not gain a holder on the way.
    T before(std::move(*mine));
    *mine = std::move(*value);
    *value = T();
    if (altered(mine, &before))
        owner.publish(Types::Changed<T>(mine, &before));
}

template <class T>
void View<T>::doRemove(const T* object) {
    T* mine = owned(object);
    if (!mine)
        return observer.publish(Types::Remove<T>(object));
    const PubSub::Object* const topic = mine; // found through the object, which may be destroyed from here on
    const Details::Watch alive(lifeline, topic);
    // Observers are told while the object is still intact and in the table.
    owner.publish(Types::Removed<T>(mine));
    if (!alive.seesView())
        return;
    owner.unsubscribe(topic);
    if (!alive.seesObject() || disappeared(mine, topic))
        table.erase(object);
}

} // namespace Message
