// SPDX-License-Identifier: GPL-3.0-or-later
// PubSub::Details::Candidates: the receivers of one message, while it is being delivered.
#pragma once

#include "EditorModelExport.h"
#include "PubSub/Details/ObjectWatch.h"
#include "PubSub/Object.h"
#include <boost/container/small_vector.hpp>
#include <cstdint>
#include <typeindex>

namespace PubSub::Details {

class Candidates;
class SubscriberBase;
struct Channel;
struct Link;

/// What deliveries under way need to know of the bus.
struct Traffic {
    Candidates* innermost = nullptr;
    std::uint64_t departures = 0; ///< counts what may have made a candidate unwanted
};

/// Fixed when made: a subscriber that comes later is not in it. One that is destroyed, taken off the bus or
/// unsubscribed before its turn is passed over, and so is everyone once the object is destroyed. Lives on the stack of
/// the delivery; deliveries nest, so the last one made dies first.
class EDITORMODEL_EXPORT Candidates {
public:
    Candidates(const Candidates&) = delete;
    Candidates& operator=(const Candidates&) = delete;
    ~Candidates() { traffic.innermost = outer; }

    /// Goes on to the next subscriber that is still to be called; false at the end.
    bool next() {
        while (position < entries.size() && there) {
            current = entries[position++];
            // Nobody left meanwhile, nearly always: then everyone is still wanted.
            if (current.subscriber && (departures == traffic.departures || stillWanted(current.subscriber)))
                return true;
        }
        current = {};
        return false;
    }

    SubscriberBase* subscriber() const { return current.subscriber; }
    /// The subscriber's Handler<M> for the message's type M.
    void* handler() const { return current.handler; }

private:
    friend class Dispatcher;

    struct Entry {
        SubscriberBase* subscriber = nullptr;
        void* handler = nullptr;
    };

    /// The rings may be null. Not exported, so that the call within the library is direct: every message passes here.
    EDITORMODEL_NO_EXPORT Candidates(Traffic& bus, const Channel& channel, const Object* messageObject,
                                     const std::type_index& messageObjectType, const Link* ringOfObject);
    void forget(const SubscriberBase* gone);
    bool stillWanted(const SubscriberBase* subscriber) const;

    boost::container::small_vector<Entry, 12> entries;
    std::size_t position = 0;
    Entry current;
    const Object* object;
    const ObjectWatch there;
    std::type_index objectType;
    std::uint64_t departures; ///< the bus's count when this was made
    Traffic& traffic;
    Candidates* outer;
};

} // namespace PubSub::Details
