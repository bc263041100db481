// SPDX-License-Identifier: GPL-3.0-or-later
// PubSub::Details::Dispatcher: knows who hears what.
#pragma once

#include "EditorModelExport.h"
#include "PubSub/Details/Candidates.h"
#include "PubSub/Details/Link.h"
#include "PubSub/Details/MessageBase.h"
#include "PubSub/Object.h"
#include <array>
#include <cstdint>
#include <memory>
#include <typeindex>
#include <unordered_map>

namespace PubSub::Details {

struct Channel;
class SubscriberBase;

/// One in the process, and one thread's. Finding the candidates takes a time that depends neither on the number of
/// objects nor on that of subscribers elsewhere.
class EDITORMODEL_EXPORT Dispatcher {
public:
    /// Never destroyed, so that subscribers of static storage may leave at exit.
    static Dispatcher& instance();

    Dispatcher(const Dispatcher&) = delete;
    Dispatcher& operator=(const Dispatcher&) = delete;

    /// Who hears `message`: first the subscribers of the object, then those of all objects of its type, each in the
    /// order in which they subscribed, nobody twice. A null object reaches only the latter.
    Candidates getSubscribers(const MessageBase& message, const std::type_index& messageType, const Object* object,
                              const std::type_index& objectType);

    /// The channel of a message type, made when first asked for; it stays for good.
    Channel* channel(const std::type_index& messageType);

private:
    friend class SubscriberBase;

    struct Remembered {
        const char* name = nullptr;
        Channel* channel = nullptr;
    };

    Dispatcher();
    ~Dispatcher();
    // Not exported, so that calls within the library are direct: every message passes here.
    EDITORMODEL_NO_EXPORT Channel* find(const std::type_index& messageType);
    void joinTopic(const Object* object, Link& link);
    void leaveTopic(const Object* object, Link& link);
    void subscriberGone(const SubscriberBase* subscriber);

    std::unordered_map<std::type_index, std::unique_ptr<Channel>> channels;
    std::array<Remembered, 64> lately; ///< saves hashing the type's whole name for every message
    std::unordered_map<const Object*, Link> topics;
    Traffic traffic;
};

} // namespace PubSub::Details
