// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace PubSub::Details {

class SubscriberBase;

/// One subscription in the ring of a topic. The ring's head is a Link without a subscriber; a Link outside any ring is
/// linked to itself. Links do not move while they are in a ring.
struct Link {
    Link() = default;
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;
    ~Link() { leave(); }

    void joinBefore(Link& head) {
        previous = head.previous;
        next = &head;
        previous->next = this;
        head.previous = this;
    }

    void leave() {
        previous->next = next;
        next->previous = previous;
        previous = next = this;
    }

    Link* previous = this;
    Link* next = this;
    SubscriberBase* subscriber = nullptr;
    void* handler = nullptr;
};

} // namespace PubSub::Details
