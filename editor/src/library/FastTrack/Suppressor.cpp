// SPDX-License-Identifier: GPL-3.0-or-later
#include "FastTrack/Suppressor.h"

namespace FastTrack {

Suppressor::Suppressor() {
    observeAll();
    change(nullptr)->suppress(this);
}

// The first object of the table again: if one of a lower address has come since, the request goes to that one.
Suppressor::~Suppressor() {
    change(nullptr)->unsuppress(this);
}

} // namespace FastTrack
