#include "EditorProject/FastTrackShare.h"

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
    // The one that goes is still in the table.
    if (!owner.isOwn(object) && fastTracks().size() == 1)
        owner.own();
}

} // namespace Project
