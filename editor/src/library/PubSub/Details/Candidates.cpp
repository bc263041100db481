#include "PubSub/Details/Candidates.h"

#include "PubSub/Details/Dispatcher.h"
#include "PubSub/Details/SubscriberBase.h"

namespace PubSub::Details {

Candidates::Candidates(Dispatcher& bus, const Channel& channel, const Object* messageObject,
                       const std::type_index& messageObjectType)
    : object(messageObject)
    , objectType(messageObjectType)
    , departures(bus.departures)
    , dispatcher(bus)
    , outer(bus.innermost) {
    if (object)
        bus.gatherFromObject(*this, channel);
    bus.gatherFromType(*this, channel);
    bus.innermost = this;
}

Candidates::~Candidates() {
    dispatcher.innermost = outer;
}

bool Candidates::next() {
    while (position < entries.size()) {
        current = entries[position++];
        if (current.subscriber && stillWanted(current))
            return true;
    }
    current = {};
    return false;
}

bool Candidates::stillWanted(const Entry& entry) const {
    if (departures == dispatcher.departures)
        return true;
    return entry.subscriber->isRegistered() &&
           (entry.subscriber->isSubscribed(objectType) || (object && entry.subscriber->isSubscribed(object)));
}

void Candidates::forget(const SubscriberBase* gone) {
    for (std::size_t index = position; index < entries.size(); ++index)
        if (entries[index].subscriber == gone)
            entries[index] = {};
}

} // namespace PubSub::Details
