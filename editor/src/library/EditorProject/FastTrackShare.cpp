// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorProject/FastTrackShare.h"

#include <set>

namespace Project {

void FastTrackShare::Owner::own() {
    object = FastTrack::Object(); // who held it back before does not know it any more
    fastTrackOwn(&object);
}

FastTrackShare::FastTrackShare() {
    observeAll();
    if (fastTracks().empty())
        owner.own();
}

FastTrackShare::~FastTrackShare() {
    // First, or the one that takes over would be taken for another that this one has to give way to.
    observeNew(false);
    if (owner.owns())
        owner.remove();
}

void FastTrackShare::fastTrackAdded(const FastTrack::Object* object) {
    if (!owner.isOwn(object) && owner.owns())
        owner.remove();
}

void FastTrackShare::fastTrackRemoved(const FastTrack::Object* object) {
    if (owner.isOwn(object)) // without a look at the others: it may be the end of this one, which takes no memory
        return;
    // Asked for and not looked up in the table: of others that hear the same, this one may not have heard yet. The one
    // that goes is its owner's until everybody has been told.
    std::set<const FastTrack::Object*> others = enumerateAll();
    others.erase(object);
    if (others.empty())
        owner.own();
}

} // namespace Project
