// SPDX-License-Identifier: GPL-3.0-or-later
// Project::FastTrackShare: sees to it that the model has a fast track, and no more than one by projects.
#pragma once

#include "FastTrack/View.h"

namespace Project {

/// An export holds back whatever fast track it finds first, so a second one would be held back in place of the one that
/// matters. Owns one only while nobody else does: gives way to another owner's, and takes over when the last one goes.
/// One thread.
class FastTrackShare final : private FastTrack::View {
public:
    FastTrackShare();
    ~FastTrackShare() override;

private:
    /// Apart from the observer, to which its own object would come as another's.
    class Owner final : private FastTrack::View {
    public:
        bool owns() const { return fastTrackIsOwned(&object); }
        bool isOwn(const FastTrack::Object* other) const { return other == &object; }
        void own();
        void remove() { fastTrackRemove(&object); }

    private:
        FastTrack::Object object;
    };

    void fastTrackAdded(const FastTrack::Object* object) override;
    void fastTrackRemoved(const FastTrack::Object* object) override;

    Owner owner;
};

} // namespace Project
