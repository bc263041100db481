// SPDX-License-Identifier: GPL-3.0-or-later
// Render::SoundTracks: every sound track of media files, each a track of the file that is made of them.
#pragma once

#include "EditorRenderExport.h"
#include "Kestra/Proc/IMediaSource.h"
#include "Render/Sequence.h"
#include <vector>

namespace Render {

struct EDITORRENDER_EXPORT SoundTracks {
    /// Those of a medium, by their numbers in its container.
    static std::vector<int> of(const Kestra::Proc::MediaInfo& info);

    /// What Sequence::ofFiles() made of the files, with the first sound track of each as its sound and the others as
    /// further sounds; a file without any is silent in all. All tracks of a file keep their places beside each other
    /// and beside its pictures, and the file stands there as long as its longest. Each file is opened once more for
    /// each further track. Throws as ofFiles() does, naming the track that cannot be read, and ProcException
    /// (InvalidArgument) for files of which one has fewer than another.
    static Sequence all(const Sequence& sequence, const std::vector<Kestra::ioPath>& files,
                        const std::atomic<bool>* interrupted = nullptr, const Kestra::Proc::MediaLimits& limits = {});

    SoundTracks() = delete;
};

} // namespace Render
