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
    // Built in the caller's frame and never moved: it is in the dispatcher's list from here on.
    return Candidates(*this, *channel(messageType), object, objectType);
}

Channel* Dispatcher::channel(const std::type_index& messageType) {
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

void Dispatcher::gatherFromObject(Candidates& candidates, const Channel& channel) const {
    const auto topic = topics.find(candidates.object);
    if (topic == topics.end())
        return;
    const Link& head = topic->second;
    for (const Link* link = head.next; link != &head; link = link->next)
        if (link->subscriber->registered)
            if (void* handler = link->subscriber->handlerOf(channel))
                candidates.entries.push_back({link->subscriber, handler});
}

void Dispatcher::gatherFromType(Candidates& candidates, const Channel& channel) const {
    const Link* head = channel.find(candidates.objectType);
    if (!head)
        return;
    for (const Link* link = head->next; link != head; link = link->next)
        if (link->subscriber->registered && !(candidates.object && link->subscriber->isSubscribed(candidates.object)))
            candidates.entries.push_back({link->subscriber, link->handler});
}

void Dispatcher::joinTopic(const Object* object, Link& link) {
    link.joinBefore(topics[object]);
}

void Dispatcher::leaveTopic(const Object* object, Link& link) {
    const bool last = link.next == link.previous;
    link.leave();
    ++departures;
    if (last)
        topics.erase(object);
}

void Dispatcher::subscriberGone(const SubscriberBase* subscriber) {
    for (Candidates* candidates = innermost; candidates; candidates = candidates->outer)
        candidates->forget(subscriber);
}

} // namespace PubSub::Details
