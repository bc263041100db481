// SPDX-License-Identifier: GPL-3.0-or-later
// What codecs of audio put before and behind the samples that they were given.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstdint>

namespace Kestra::FF {

/// Samples of whole packets that a decoder of this audio has to have seen before what it gives is right.
std::int64_t PrerollSamples(const AVCodecParameters& parameters) noexcept;

/// The most samples that usual encoders of this audio put in front to settle; 0 where they put none.
std::int64_t PrimingSamples(const AVCodecParameters& parameters) noexcept;

/// The samples that libav's own encoders put in front, where its writers tell of them; 0 for audio of others.
std::int64_t LibavPrimingSamples(const AVCodecParameters& parameters) noexcept;

/// Samples of the longest block that an encoder fills up with silence at the end, `block` being a usual one; 0 where
/// blocks end with the audio.
std::int64_t PaddingSamples(const AVCodecParameters& parameters, int block) noexcept;

} // namespace Kestra::FF
