// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::StillReader: the pictures of files that hold one each.
#pragma once

#include "Kestra/Base/ioPath.h"
#include "Kestra/FF/Demux/Demuxer.h"
#include "Kestra/FF/Picture/FrameRotator.h"
#include <atomic>
#include <functional>

namespace Kestra::FF {

/// Bound to one thread at a time.
class StillReader {
public:
    /// `interrupted` is borrowed for life.
    StillReader(const std::atomic<bool>& interrupted, const Proc::MediaLimits& limits);

    /// The file's first picture, upright and tagged as a video stream's pictures are. Opens that file and no other:
    /// its name is no pattern. `onFlaw` is told of damage that was concealed in it. Throws ProcException as
    /// ISourceFactory::OpenMedia.
    FrameHandle Read(const ioPath& path, const std::function<void(const std::string& what)>& onFlaw);

private:
    FrameHandle Decode(Demuxer& demuxer, int stream) const;

    const std::atomic<bool>& interrupted;
    const Proc::MediaLimits limits;
};

} // namespace Kestra::FF
