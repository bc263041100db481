// SPDX-License-Identifier: GPL-3.0-or-later
// Reading a track's nominal rate and depth out of what containers say.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <boost/rational.hpp>
#include <cstdint>

namespace Kestra::FF {

/// The rate that a track is said to have: the container's where it fits what the frames do, brought to a usual one
/// when it is next to it; 0 when nothing is known.
boost::rational<long long> NominalRate(const AVStream& stream);
/// Whether the header claims more than HIGHEST_FRAME_RATE; a container's clock is no claim.
bool ClaimsTooHighRate(const AVStream& stream);

/// The bits of each sample of a lossless codec that decodes to `format`, and of one that can lose something where it
/// tells them; 0 for the others, which have none of their own.
int SampleBitsOf(const AVCodecParameters& parameters, AVSampleFormat format);

} // namespace Kestra::FF
