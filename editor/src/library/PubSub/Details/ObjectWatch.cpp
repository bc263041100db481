// SPDX-License-Identifier: GPL-3.0-or-later
#include "PubSub/Details/ObjectWatch.h"

namespace PubSub::Details {

namespace {

// Objects are values: copies of them live and die on other threads too, which watch nothing.
thread_local ObjectWatch* innermost = nullptr;

} // namespace

ObjectWatch::ObjectWatch(const Object* watched) noexcept
    : object(watched)
    , outer(innermost) {
    innermost = this;
}

ObjectWatch::~ObjectWatch() {
    innermost = outer;
}

void ObjectWatch::gone(const Object* object) noexcept {
    for (ObjectWatch* watch = innermost; watch; watch = watch->outer)
        if (watch->object == object)
            watch->alive = false;
}

} // namespace PubSub::Details
