#include "FastTrack/View.h"

namespace FastTrack {

View::~View() = default;

void View::fastTrackChanged(const Object* object, const Object* before, const Object* after) {
    if (before->progress != after->progress)
        progressChanged(object);
    if (before->enabled != after->enabled)
        isEnabled(object, after->enabled);
    if (before->active() != after->active())
        isActive(object, after->active());
    if (before->freezed() != after->freezed())
        isFreezed(object, after->freezed());
    if (before->cacheFolder != after->cacheFolder)
        cacheFolderChanged(object);
    if (before->complete != after->complete)
        isComplete(object, after->complete);
}

void View::progressChanged(const Object*) {}
void View::isEnabled(const Object*, bool) {}
void View::isActive(const Object*, bool) {}
void View::isFreezed(const Object*, bool) {}
void View::cacheFolderChanged(const Object*) {}
void View::isComplete(const Object*, bool) {}

} // namespace FastTrack
