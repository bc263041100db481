// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PubSub/Details/Link.h"
#include <list>
#include <typeindex>

namespace PubSub::Details {

/// The subscribers of one message type that hear all objects of a type, in a ring per object type (nearly always one).
struct Channel {
    struct Ring {
        explicit Ring(const std::type_index& type)
            : objectType(type) {}
        std::type_index objectType;
        Link head;
    };

    const Link* find(const std::type_index& objectType) const {
        for (const Ring& ring : rings)
            if (ring.objectType == objectType)
                return &ring.head;
        return nullptr;
    }

    Link& ring(const std::type_index& objectType) {
        for (Ring& ring : rings)
            if (ring.objectType == objectType)
                return ring.head;
        return rings.emplace_back(objectType).head;
    }

    std::list<Ring> rings;
};

} // namespace PubSub::Details
