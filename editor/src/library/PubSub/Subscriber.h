// SPDX-License-Identifier: GPL-3.0-or-later
// PubSub::Subscriber: receives messages of the listed types.
#pragma once

#include "PubSub/Details/Dispatcher.h"
#include "PubSub/Details/Handler.h"
#include "PubSub/Details/SubscriberBase.h"
#include <typeinfo>

namespace PubSub {

/// Registered from construction to destruction, with no subscription at first. Derived classes override notify() for
/// each message type.
template <class... Messages>
class Subscriber : public Details::SubscriberBase, public Details::Handler<Messages>... {
public:
    using Details::Handler<Messages>::notify...;

protected:
    Subscriber()
        : SubscriberBase({Handled{Details::Dispatcher::instance().channel(typeid(Messages)),
                                  static_cast<Details::Handler<Messages>*>(this)}...}) {
        registerSelf();
    }
};

} // namespace PubSub
