// SPDX-License-Identifier: GPL-3.0-or-later
#include "Composition/Object.h"

namespace Composition {

Object& Object::setVideo(const Media::Video* description) {
    ownVideo = description;
    return *this;
}

Object& Object::setAudio(const Media::Audio* description) {
    ownAudio = description;
    return *this;
}

Object& Object::add(const Media::Video* exported) {
    Types::insert(videos, exported);
    return *this;
}

Object& Object::add(const Media::Audio* exported) {
    Types::insert(audios, exported);
    return *this;
}

Object& Object::remove(const Media::Video* exported) {
    Types::erase(videos, exported);
    return *this;
}

Object& Object::remove(const Media::Audio* exported) {
    Types::erase(audios, exported);
    return *this;
}

bool Object::contains(const Media::Video* exported) const {
    return Types::contains(videos, exported);
}

bool Object::contains(const Media::Audio* exported) const {
    return Types::contains(audios, exported);
}

Object& Object::setDuration(KTime duration) {
    length = duration;
    return *this;
}

Object& Object::setVersion(std::uint64_t version) {
    contentVersion = version;
    return *this;
}

} // namespace Composition
