// SPDX-License-Identifier: GPL-3.0-or-later
// PubSub::Publisher: sends messages of the listed types.
#pragma once

#include "PubSub/Details/Dispatcher.h"
#include "PubSub/Details/Handler.h"
#include <type_traits>
#include <typeinfo>

namespace PubSub {

/// Delivery is synchronous: publish() returns after every handler has run. A handler may publish in turn. What a
/// handler throws reaches the caller of publish(); those who would have come after it are then not called.
template <class... Messages>
class Publisher {
public:
    template <class M>
    void publish(const M& message) const {
        static_assert((std::is_same_v<M, Messages> || ...), "not a message of this publisher");
        using T = typename M::ObjectType;
        auto& dispatcher = Details::Dispatcher::instance();
        auto candidates = dispatcher.getSubscribers(message, typeid(M), message.object, typeid(T));
        while (candidates.next())
            static_cast<Details::Handler<M>*>(candidates.handler())->notify(message);
    }
};

} // namespace PubSub
