// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SampleNormaliser: keeps audio in one format though the decoder changes it on the way.
#pragma once

#include "Kestra/FF/Av/FilterGraph.h"
#include "Kestra/FF/Av/Handles.h"
#include <cstdint>
#include <optional>
#include <vector>

namespace Kestra::FF {

/// Blocks that have the format pass untouched. Others go through one resampler for as long as they have the same shape,
/// so that they touch, and through a limiter behind it where mixing their channels can exceed full scale; the last of
/// their samples come when a block of another shape follows, or at the end. Bound to one thread at a time.
class SampleNormaliser {
public:
    SampleNormaliser(AVSampleFormat format, int sampleRate, const AVChannelLayout& layout);
    ~SampleNormaliser();
    SampleNormaliser(const SampleNormaliser&) = delete;
    SampleNormaliser& operator=(const SampleNormaliser&) = delete;

    struct Piece {
        FrameHandle samples;
        /// By how much it begins before the block that was given, in samples.
        std::int64_t early = 0;
        /// It is what was left of the blocks before.
        bool isRest = false;
    };

    /// `block` in the format.
    std::vector<Piece> Normalise(FrameHandle block);
    /// What is left at the end; null when nothing is.
    FrameHandle Drain();
    /// How many samples of the format are still to come of blocks that were given.
    std::int64_t GetDelay() const;
    /// From the next block on, the following `distance` samples become `samples` more, or fewer when negative.
    void Stretch(std::int64_t samples, std::int64_t distance);
    /// Forgets what came before.
    void Reset();
    /// Silence in the format.
    FrameHandle MakeSilence(int samples) const;
    /// Whether it has the rate and the channels of the format.
    bool HasShape(const AVFrame& block) const;

private:
    FrameHandle MakeBlock(AVSampleFormat sampleFormat, int samples) const;
    AVSampleFormat ConverterFormat() const { return limiter ? AV_SAMPLE_FMT_FLTP : format; }
    bool Fits(const AVFrame& block) const;
    bool FitsConverter(const AVFrame& block) const;
    void Start(const AVFrame& block);
    void Prime();
    FrameHandle Convert(const AVFrame* block);
    FrameHandle Limit(FrameHandle mixed, bool last);

    AVSampleFormat format;
    int sampleRate;
    AVChannelLayout layout = {};
    SwrContextHandle converter;
    std::optional<FilterGraph> limiter; ///< behind the converter, where its mix can exceed full scale
    std::int64_t heldBack = 0;          ///< samples in the limiter
    FrameHandle shape;                  ///< a block of those that the converter takes
    FrameHandle previous;               ///< the last block that passed untouched
    std::int64_t surplus = 0;           ///< samples to be dropped: they have been given already
    std::int64_t stretch = 0;
    std::int64_t stretchDistance = 0;
};

} // namespace Kestra::FF
