// SPDX-License-Identifier: GPL-3.0-or-later
#include "Composition/Details/ObjectViewBase.h"

template class Message::View<Composition::Object>;

namespace Composition::Details {

ObjectViewBase::~ObjectViewBase() = default;

void ObjectViewBase::compositionAdded(const Composition::Object*) {}
void ObjectViewBase::compositionRemoved(const Composition::Object*) {}
void ObjectViewBase::compositionChanged(const Composition::Object*, const Composition::Object*,
                                        const Composition::Object*) {}
void ObjectViewBase::compositionChanged(const Composition::Object*, const Composition::Object*) {}
void ObjectViewBase::compositionChanged(const Composition::Object*) {}

} // namespace Composition::Details
