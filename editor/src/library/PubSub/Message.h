// SPDX-License-Identifier: GPL-3.0-or-later
// PubSub::Message: a message about an object of type T.
#pragma once

#include "PubSub/Details/MessageBase.h"

namespace PubSub {

template <class T>
class Message : public Details::MessageBase {
public:
    using ObjectType = T;

    explicit Message(const T* about)
        : object(about) {}

    /// The object that the message concerns and the topic by which it is delivered. Null reaches only those who
    /// subscribed to all objects of T.
    const T* object;
};

} // namespace PubSub
