// SPDX-License-Identifier: GPL-3.0-or-later
// What an export has on the bus while it lives: subscriptions, and the suppression of the fast track.
#pragma once

#include "Composition/Object.h"
#include "Export/ExportStreams.h"
#include "FastTrack/Object.h"
#include "FastTrack/View.h"
#include "Message/Types.h"
#include "PubSub/Details/Dispatcher.h"
#include <typeinfo>

namespace Sweep {

/// The editor's fast track as long as it lives.
class OwnFastTrack : private FastTrack::View {
public:
    OwnFastTrack() { fastTrackOwn(&object); }
    ~OwnFastTrack() override { fastTrackRemove(&object); }
    bool isSuppressed() const { return object.isSuppressed(); }

private:
    FastTrack::Object object;
};

/// How many subscribers hear the message, whatever object it is about.
template <class M>
int hearersOf(const M& message) {
    auto candidates = PubSub::Details::Dispatcher::instance().getSubscribers(message, typeid(M), nullptr,
                                                                             typeid(typename M::ObjectType));
    int count = 0;
    while (candidates.next())
        ++count;
    return count;
}

template <class T>
int subscriptionsTo() {
    using namespace Message::Types;
    return hearersOf(Add<T>(nullptr)) + hearersOf(Added<T>(nullptr)) + hearersOf(Change<T>(nullptr, nullptr)) +
           hearersOf(Changed<T>(nullptr, nullptr)) + hearersOf(Remove<T>(nullptr)) + hearersOf(Removed<T>(nullptr)) +
           hearersOf(Enumerate<T>()) + hearersOf(Enumerated<T>(nullptr));
}

/// To all objects of the kinds that an export deals with.
inline int subscriptions() {
    return subscriptionsTo<Stream::VideoObject>() + subscriptionsTo<Stream::AudioObject>() +
           subscriptionsTo<Composition::Object>() + subscriptionsTo<FastTrack::Object>() +
           subscriptionsTo<Media::Video>() + subscriptionsTo<Media::Audio>();
}

} // namespace Sweep
