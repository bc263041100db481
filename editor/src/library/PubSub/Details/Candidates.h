// PubSub::Details::Candidates: the receivers of one message, while it is being delivered.
#pragma once

#include "EditorModelExport.h"
#include "PubSub/Object.h"
#include <boost/container/small_vector.hpp>
#include <cstdint>
#include <typeindex>

namespace PubSub::Details {

struct Channel;
class Dispatcher;
class SubscriberBase;

/// Fixed when made: a subscriber that comes later is not in it. One that is destroyed, taken off the bus or
/// unsubscribed before its turn is passed over. Lives on the stack of the delivery; deliveries nest, so the last one
/// made dies first.
class EDITORMODEL_EXPORT Candidates {
public:
    Candidates(const Candidates&) = delete;
    Candidates& operator=(const Candidates&) = delete;
    ~Candidates();

    /// Goes on to the next subscriber that is still to be called; false at the end.
    bool next();
    SubscriberBase* subscriber() const { return current.subscriber; }
    /// The subscriber's Handler<M> for the message's type M.
    void* handler() const { return current.handler; }

private:
    friend class Dispatcher;

    struct Entry {
        SubscriberBase* subscriber = nullptr;
        void* handler = nullptr;
    };

    Candidates(Dispatcher& bus, const Channel& channel, const Object* messageObject,
               const std::type_index& messageObjectType);
    void forget(const SubscriberBase* gone);
    bool stillWanted(const Entry& entry) const;

    boost::container::small_vector<Entry, 6> entries;
    std::size_t position = 0;
    Entry current;
    const Object* object;
    std::type_index objectType;
    std::uint64_t departures; ///< the dispatcher's count when this was made: unchanged means that nobody left meanwhile
    Dispatcher& dispatcher;
    Candidates* outer;
};

} // namespace PubSub::Details
