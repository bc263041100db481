// SPDX-License-Identifier: GPL-3.0-or-later
// Composition::Object: the project being edited.
#pragma once

#include "EditorModelExport.h"
#include "KTime/KTime.h"
#include "Media/Audio.h"
#include "Media/Video.h"
#include "PubSub/Object.h"
#include "Types/AddressSet.h"
#include <cstdint>

namespace Composition {

/// A value. All descriptions are borrowed: only their addresses are kept, and nothing here looks into them.
class EDITORMODEL_EXPORT Object : public virtual PubSub::Object {
public:
    /// The composition's own descriptions; null when it has no pictures or no sound.
    const Media::Video* video() const { return ownVideo; }
    const Media::Audio* audio() const { return ownAudio; }
    Object& setVideo(const Media::Video* description);
    Object& setAudio(const Media::Audio* description);

    /// Descriptions of exports in preparation. Adding one twice or removing an unknown one changes nothing; null is
    /// ignored.
    Object& add(const Media::Video* exported);
    Object& add(const Media::Audio* exported);
    Object& remove(const Media::Video* exported);
    Object& remove(const Media::Audio* exported);
    bool contains(const Media::Video* exported) const;
    bool contains(const Media::Audio* exported) const;
    /// In ascending address order.
    const Types::AddressSet<Media::Video>& exportedVideos() const { return videos; }
    const Types::AddressSet<Media::Audio>& exportedAudios() const { return audios; }

    KTime duration() const { return length; }
    Object& setDuration(KTime duration);

    /// Counts the changes of what the composition shows or sounds like; exports do not count.
    std::uint64_t version() const { return contentVersion; }
    Object& setVersion(std::uint64_t version);

private:
    const Media::Video* ownVideo = nullptr;
    const Media::Audio* ownAudio = nullptr;
    Types::AddressSet<Media::Video> videos;
    Types::AddressSet<Media::Audio> audios;
    KTime length;
    std::uint64_t contentVersion = 0;
};

} // namespace Composition
