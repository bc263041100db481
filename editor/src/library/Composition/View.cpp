// SPDX-License-Identifier: GPL-3.0-or-later
#include "Composition/View.h"

namespace Composition {

View::~View() = default;

void View::compositionChanged(const Object* composition, const Object* before, const Object* after) {
    const auto alive = CompositionView::watch(composition);
    if (before->video() != after->video()) {
        follow(before->video(), after->video());
        if (alive)
            videoChanged(composition);
    }
    if (alive && before->audio() != after->audio()) {
        follow(before->audio(), after->audio());
        if (alive)
            audioChanged(composition);
    }
    if (alive &&
        (before->exportedVideos() != after->exportedVideos() || before->exportedAudios() != after->exportedAudios()))
        exportsChanged(composition);
    if (alive && (before->duration() != after->duration() || before->version() != after->version()))
        contentChanged(composition);
}

// A description that its owner has taken back is not forgotten twice, one that the view holds already is left as it is.
template <class M>
void View::follow(const M* before, const M* after) {
    using Medias = Media::View<M>;
    const auto alive = Medias::watch(after);
    if (Medias::mediaIsObserved(before))
        Medias::mediaForget(before);
    if (alive && after && !Medias::mediaIsObserved(after))
        Medias::mediaObserve(after);
}

void View::videoChanged(const Object*) {}
void View::audioChanged(const Object*) {}
void View::exportsChanged(const Object*) {}
void View::contentChanged(const Object*) {}

} // namespace Composition
