// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::AllKinds: for tests that are made for each kind of model objects.
#pragma once

#include "sweep/storm/Kinds.h"
#include <gtest/gtest.h>

namespace Sweep {

using AllKinds = ::testing::Types<VideoStreamKind, AudioStreamKind, MediaKind<Media::Video>, MediaKind<Media::Audio>,
                                  FastTrackKind, CompositionKind>;

struct NamesOfKinds {
    template <class ObjectKind>
    static std::string GetName(int index) {
        static const char* const names[] = {"VideoStreams", "AudioStreams", "Videos",
                                            "Audios",       "FastTracks",   "Compositions"};
        return names[index];
    }
};

} // namespace Sweep
