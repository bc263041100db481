// Reading a track's orientation and nominal rate out of what containers say.
#pragma once

#include "Kestra/FF/Handles.h"
#include "KestraExport.h"
#include <boost/rational.hpp>
#include <cstdint>

namespace Kestra::FF {

/// How a picture is brought upright: turned clockwise by 0, 90, 180 or 270 degrees, then, if flipped, turned upside
/// down.
struct Orientation {
    int rotation = 0;
    bool flipped = false;
};

/// From a display matrix of nine 16.16 numbers. Angles between quarter turns are taken to the nearest one.
KESTRA_EXPORT Orientation ReadDisplayMatrix(const std::int32_t* matrix);
/// The container's orientation; where it has none, that of the decoded picture (EXIF, SEI).
Orientation FindOrientation(const AVStream& stream, const AVFrame* picture);

/// The rate that a track is said to have: the container's where it fits what the frames do, brought to a usual one
/// when it is next to it; 0 when nothing is known.
boost::rational<long long> NominalRate(const AVStream& stream);
/// Whether the header claims more than HIGHEST_FRAME_RATE; a container's clock is no claim.
bool ClaimsTooHighRate(const AVStream& stream);

/// The bits of each sample of a lossless codec that decodes to `format`; 0 for the others, which have none of their
/// own.
int SampleBitsOf(const AVCodecParameters& parameters, AVSampleFormat format);

} // namespace Kestra::FF
