// SPDX-License-Identifier: GPL-3.0-or-later
#include "PubSub/Object.h"

#include "PubSub/Details/ObjectWatch.h"

namespace PubSub {

Object::~Object() {
    Details::ObjectWatch::gone(this);
}

} // namespace PubSub
