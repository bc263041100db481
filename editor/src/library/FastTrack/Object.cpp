// SPDX-License-Identifier: GPL-3.0-or-later
#include "FastTrack/Object.h"

namespace FastTrack {

Object& Object::suppress(const Suppressor* suppressor) {
    Types::insert(suppressors, suppressor);
    return *this;
}

Object& Object::unsuppress(const Suppressor* suppressor) {
    Types::erase(suppressors, suppressor);
    return *this;
}

bool Object::isSuppressedBy(const Suppressor* suppressor) const {
    return Types::contains(suppressors, suppressor);
}

Object& Object::setActive(bool on) {
    switchedOn = on;
    return *this;
}

Object& Object::setFreezed(bool on) {
    frozen = on;
    return *this;
}

} // namespace FastTrack
