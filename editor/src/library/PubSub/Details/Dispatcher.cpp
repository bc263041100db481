// SPDX-License-Identifier: GPL-3.0-or-later
#include "PubSub/Details/Dispatcher.h"

#include "PubSub/Details/Channel.h"
#include "PubSub/Details/SubscriberBase.h"

namespace PubSub::Details {

Dispatcher& Dispatcher::instance() {
    static Dispatcher& dispatcher = *new Dispatcher;
    return dispatcher;
}

Dispatcher::Dispatcher() = default;
Dispatcher::~Dispatcher() = default;

Candidates Dispatcher::getSubscribers(const MessageBase&, const std::type_index& messageType, const Object* object,
                                      const std::type_index& objectType) {
    const auto topic = object ? topics.find(object) : topics.end();
    const Link* ring = topic == topics.end() ? nullptr : &topic->second;
    // Made in the caller's frame and never moved: the bus knows its address.
    return Candidates(traffic, *find(messageType), object, objectType, ring);
}

Channel* Dispatcher::channel(const std::type_index& messageType) {
    return find(messageType);
}

Channel* Dispatcher::find(const std::type_index& messageType) {
    // Equal types may have several names in memory (one a library), so a name found here is surely right,
    // and one not found must be looked up by its text.
    const char* name = messageType.name();
    Remembered& remembered = lately[(reinterpret_cast<std::uintptr_t>(name) >> 4) % lately.size()];
    if (remembered.name != name) {
        std::unique_ptr<Channel>& found = channels[messageType];
        if (!found)
            found = std::make_unique<Channel>();
        remembered = {name, found.get()};
    }
    return remembered.channel;
}

void Dispatcher::joinTopic(const Object* object, Link& link) {
    link.joinBefore(topics[object]);
}

void Dispatcher::leaveTopic(const Object* object, Link& link) {
    const bool last = link.next == link.previous;
    link.leave();
    ++traffic.departures;
    if (last)
        topics.erase(object);
}

void Dispatcher::subscriberGone(const SubscriberBase* subscriber) {
    for (Candidates* candidates = traffic.innermost; candidates; candidates = candidates->outer)
        candidates->forget(subscriber);
}

} // namespace PubSub::Details
