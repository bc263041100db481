// SPDX-License-Identifier: GPL-3.0-or-later
// PubSub::Details::SubscriberBase: a place on the bus, whatever the messages.
#pragma once

#include "EditorModelExport.h"
#include "PubSub/Details/Link.h"
#include "PubSub/Object.h"
#include <initializer_list>
#include <map>
#include <typeindex>
#include <unordered_map>
#include <vector>

namespace PubSub::Details {

struct Channel;

/// Receives a message when it is registered, handles the message's type and is subscribed to the message's object or to
/// all objects of the object's type. Bound to one thread, like the whole bus. May be destroyed at any time, also in a
/// delivery.
class EDITORMODEL_EXPORT SubscriberBase {
public:
    SubscriberBase(const SubscriberBase&) = delete;
    SubscriberBase& operator=(const SubscriberBase&) = delete;
    virtual ~SubscriberBase();

    /// Repeated calls change nothing. The object need not outlive the subscription, and unsubscribe() does not look
    /// into it.
    void subscribe(const Object* object);
    void unsubscribe(const Object* object);
    bool isSubscribed(const Object* object) const;

    /// The same for all objects of a type, those to come included.
    void subscribeAll(const std::type_index& objectType);
    void unsubscribeAll(const std::type_index& objectType);
    bool isSubscribed(const std::type_index& objectType) const;

    /// Onto the bus and off it; the subscriptions are kept meanwhile.
    void registerSelf();
    void unregisterSelf();
    bool isRegistered() const { return registered; }

protected:
    /// One message type that the subscriber handles, with its Handler<M>.
    struct Handled {
        Channel* channel;
        void* handler;
    };

    explicit SubscriberBase(std::initializer_list<Handled> handledMessages);

private:
    friend class Candidates;

    void* handlerOf(const Channel& channel) const {
        for (const Handled& entry : handled)
            if (entry.channel == &channel)
                return entry.handler;
        return nullptr;
    }

    std::vector<Handled> handled;
    std::unordered_map<const Object*, Link> objects;
    std::map<std::type_index, std::vector<Link>> types;
    bool registered = false;
};

} // namespace PubSub::Details
