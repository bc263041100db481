// SPDX-License-Identifier: GPL-3.0-or-later
#include "FastTrack/Details/ObjectViewBase.h"

template class Message::View<FastTrack::Object>;

namespace FastTrack::Details {

ObjectViewBase::~ObjectViewBase() = default;

void ObjectViewBase::fastTrackAdded(const FastTrack::Object*) {}
void ObjectViewBase::fastTrackRemoved(const FastTrack::Object*) {}
void ObjectViewBase::fastTrackChanged(const FastTrack::Object*, const FastTrack::Object*, const FastTrack::Object*) {}
void ObjectViewBase::fastTrackChanged(const FastTrack::Object*, const FastTrack::Object*) {}
void ObjectViewBase::fastTrackChanged(const FastTrack::Object*) {}

} // namespace FastTrack::Details
