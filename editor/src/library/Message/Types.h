// SPDX-License-Identifier: GPL-3.0-or-later
// The messages that views exchange about objects of a type T.
#pragma once

#include "PubSub/Message.h"

namespace Message::Types {

/// Asks the owner for something.
template <class T>
class Request : public PubSub::Message<T> {
public:
    using PubSub::Message<T>::Message;
};

/// Tells what the owner did.
template <class T>
class Notification : public PubSub::Message<T> {
public:
    using PubSub::Message<T>::Message;
};

/// Asks whoever adopts objects of type T to own `value`, which is the message's object itself.
template <class T>
class Add : public Request<T> {
public:
    explicit Add(T* candidate)
        : Request<T>(candidate)
        , value(candidate) {}
    T* value;
};

template <class T>
class Added : public Notification<T> {
public:
    using Notification<T>::Notification;
};

/// Asks the owner to give the object the state of `value`, a T apart that stays the requester's.
template <class T>
class Change : public Request<T> {
public:
    Change(const T* about, T* proposed)
        : Request<T>(about)
        , value(proposed) {}
    T* value;
};

/// The object already holds its new state; `previous` holds the old one, for the time of the delivery.
template <class T>
class Changed : public Notification<T> {
public:
    Changed(const T* about, const T* before)
        : Notification<T>(about)
        , previous(before) {}
    const T* previous;
};

template <class T>
class Remove : public Request<T> {
public:
    using Request<T>::Request;
};

/// Sent while the object is still intact.
template <class T>
class Removed : public Notification<T> {
public:
    using Notification<T>::Notification;
};

/// Asks every owner for its objects; about none, so its object is null.
template <class T>
class Enumerate : public Request<T> {
public:
    Enumerate()
        : Request<T>(nullptr) {}
};

template <class T>
class Enumerated : public Notification<T> {
public:
    using Notification<T>::Notification;
};

} // namespace Message::Types
