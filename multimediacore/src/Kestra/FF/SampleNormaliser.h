// Kestra::FF::SampleNormaliser: keeps sound in one format though the decoder changes it on the way.
#pragma once

#include "Kestra/FF/Handles.h"

namespace Kestra::FF {

/// Bound to one thread at a time.
class SampleNormaliser {
public:
    SampleNormaliser(AVSampleFormat format, int sampleRate, const AVChannelLayout& layout);
    ~SampleNormaliser();
    SampleNormaliser(const SampleNormaliser&) = delete;
    SampleNormaliser& operator=(const SampleNormaliser&) = delete;

    /// The block itself when it has the format, else a converted one.
    FrameHandle Normalise(FrameHandle block);
    /// Silence in the format.
    FrameHandle MakeSilence(int samples) const;

private:
    FrameHandle MakeBlock(int samples) const;

    AVSampleFormat format;
    int sampleRate;
    AVChannelLayout layout = {};
    SwrContextHandle converter;
};

} // namespace Kestra::FF
