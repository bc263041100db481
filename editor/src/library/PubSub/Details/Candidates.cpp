// SPDX-License-Identifier: GPL-3.0-or-later
#include "PubSub/Details/Candidates.h"

#include "PubSub/Details/Channel.h"
#include "PubSub/Details/SubscriberBase.h"

namespace PubSub::Details {

Candidates::Candidates(Traffic& bus, const Channel& channel, const Object* messageObject,
                       const std::type_index& messageObjectType, const Link* ringOfObject)
    : object(messageObject)
    , there(messageObject)
    , objectType(messageObjectType)
    , departures(bus.departures)
    , traffic(bus)
    , outer(bus.innermost) {
    if (ringOfObject)
        for (const Link* link = ringOfObject->next; link != ringOfObject; link = link->next)
            if (link->subscriber->isRegistered())
                if (void* handler = link->subscriber->handlerOf(channel))
                    entries.push_back({link->subscriber, handler});
    if (const Link* ring = channel.find(objectType))
        for (const Link* link = ring->next; link != ring; link = link->next)
            if (link->subscriber->isRegistered() && !(object && link->subscriber->isSubscribed(object)))
                entries.push_back({link->subscriber, link->handler});
    bus.innermost = this;
}

bool Candidates::stillWanted(const SubscriberBase* subscriber) const {
    return subscriber->isRegistered() &&
           (subscriber->isSubscribed(objectType) || (object && subscriber->isSubscribed(object)));
}

void Candidates::forget(const SubscriberBase* gone) {
    for (std::size_t index = position; index < entries.size(); ++index)
        if (entries[index].subscriber == gone)
            entries[index] = {};
}

} // namespace PubSub::Details
