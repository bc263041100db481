// SPDX-License-Identifier: GPL-3.0-or-later
#include "FastTrack/View.h"

namespace FastTrack {

View::~View() = default;

void View::fastTrackChanged(const Object* object, const Object* before, const Object* after) {
    const auto alive = watch(object);
    if (before->progress != after->progress)
        progressChanged(object);
    if (alive && before->enabled != after->enabled)
        isEnabled(object, after->enabled);
    if (alive && before->active() != after->active())
        isActive(object, after->active());
    if (alive && before->freezed() != after->freezed())
        isFreezed(object, after->freezed());
    if (alive && before->cacheFolder != after->cacheFolder)
        cacheFolderChanged(object);
    if (alive && before->complete != after->complete)
        isComplete(object, after->complete);
}

void View::progressChanged(const Object*) {}
void View::isEnabled(const Object*, bool) {}
void View::isActive(const Object*, bool) {}
void View::isFreezed(const Object*, bool) {}
void View::cacheFolderChanged(const Object*) {}
void View::isComplete(const Object*, bool) {}

} // namespace FastTrack
