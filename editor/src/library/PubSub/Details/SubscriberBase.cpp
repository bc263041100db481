// SPDX-License-Identifier: GPL-3.0-or-later
#include "PubSub/Details/SubscriberBase.h"

#include "PubSub/Details/Channel.h"
#include "PubSub/Details/Dispatcher.h"

namespace PubSub::Details {

SubscriberBase::SubscriberBase(std::initializer_list<Handled> handledMessages)
    : handled(handledMessages) {}

SubscriberBase::~SubscriberBase() {
    Dispatcher& dispatcher = Dispatcher::instance();
    for (auto& [object, link] : objects)
        dispatcher.leaveTopic(object, link);
    dispatcher.subscriberGone(this);
}

void SubscriberBase::subscribe(const Object* object) {
    if (!object || isSubscribed(object))
        return;
    Link& link = objects[object];
    link.subscriber = this;
    Dispatcher::instance().joinTopic(object, link);
}

void SubscriberBase::unsubscribe(const Object* object) {
    const auto found = objects.find(object);
    if (found == objects.end())
        return;
    Dispatcher::instance().leaveTopic(object, found->second);
    objects.erase(found);
}

bool SubscriberBase::isSubscribed(const Object* object) const {
    return !objects.empty() && objects.find(object) != objects.end();
}

void SubscriberBase::subscribeAll(const std::type_index& objectType) {
    if (isSubscribed(objectType))
        return;
    std::vector<Link>& links = types.emplace(objectType, handled.size()).first->second;
    for (std::size_t index = 0; index < handled.size(); ++index) {
        links[index].subscriber = this;
        links[index].handler = handled[index].handler;
        links[index].joinBefore(handled[index].channel->ring(objectType));
    }
}

void SubscriberBase::unsubscribeAll(const std::type_index& objectType) {
    if (types.erase(objectType) != 0)
        ++Dispatcher::instance().traffic.departures;
}

bool SubscriberBase::isSubscribed(const std::type_index& objectType) const {
    return types.find(objectType) != types.end();
}

void SubscriberBase::registerSelf() {
    registered = true;
}

void SubscriberBase::unregisterSelf() {
    registered = false;
    ++Dispatcher::instance().traffic.departures;
}

} // namespace PubSub::Details
