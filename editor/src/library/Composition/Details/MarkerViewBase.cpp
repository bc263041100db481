// SPDX-License-Identifier: GPL-3.0-or-later
#include "Composition/Details/MarkerViewBase.h"

template class Message::View<Composition::Marker>;

namespace Composition::Details {

MarkerViewBase::~MarkerViewBase() = default;

void MarkerViewBase::markerAdded(const Marker*) {}
void MarkerViewBase::markerRemoved(const Marker*) {}
void MarkerViewBase::markerChanged(const Marker*, const Marker*, const Marker*) {}
void MarkerViewBase::markerChanged(const Marker*, const Marker*) {}
void MarkerViewBase::markerChanged(const Marker*) {}

} // namespace Composition::Details
