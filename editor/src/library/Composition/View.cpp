#include "Composition/View.h"

namespace Composition {

View::~View() = default;

void View::compositionChanged(const Object* composition, const Object* before, const Object* after) {
    if (before->video() != after->video()) {
        followVideo(before->video(), after->video());
        videoChanged(composition);
    }
    if (before->audio() != after->audio()) {
        followAudio(before->audio(), after->audio());
        audioChanged(composition);
    }
    if (before->exportedVideos() != after->exportedVideos() || before->exportedAudios() != after->exportedAudios())
        exportsChanged(composition);
    if (before->duration() != after->duration() || before->version() != after->version())
        contentChanged(composition);
}

// A description that its owner has taken back is not forgotten twice, one that the view holds already is left as it is.
void View::followVideo(const Media::Video* before, const Media::Video* after) {
    using Videos = Media::View<Media::Video>;
    if (Videos::mediaIsObserved(before))
        Videos::mediaForget(before);
    if (after && !Videos::mediaIsObserved(after))
        Videos::mediaObserve(after);
}

void View::followAudio(const Media::Audio* before, const Media::Audio* after) {
    using Audios = Media::View<Media::Audio>;
    if (Audios::mediaIsObserved(before))
        Audios::mediaForget(before);
    if (after && !Audios::mediaIsObserved(after))
        Audios::mediaObserve(after);
}

void View::videoChanged(const Object*) {}
void View::audioChanged(const Object*) {}
void View::exportsChanged(const Object*) {}
void View::contentChanged(const Object*) {}

} // namespace Composition
