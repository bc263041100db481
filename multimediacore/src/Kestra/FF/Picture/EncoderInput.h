// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::EncoderInput: what frames have to look like for an encoder.
#pragma once

#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

struct EncoderInput {
    AVPixelFormat format = AV_PIX_FMT_NONE;
    int width = 0;
    int height = 0;
    AVRational sampleAspect = {1, 1};
    Conf::ColourInfo colour;   ///< complete: nothing in it is unspecified
    bool interlaced = false;   ///< fields are kept where frames have them
    bool topFieldFirst = true; ///< then, of the stream; each frame tells its own
};

/// Completes a colour description for frames of that size in `format`: what is unspecified is BT.2020 beside PQ, HLG
/// and BT.2020's primaries, else BT.601 for standard definition and BT.709 above, and the primaries of RGB are those of
/// BT.709; limited range unless `fullRange`. RGB has no matrix; a matrix for RGB is replaced for YUV.
Conf::ColourInfo CompleteColour(const Conf::ColourInfo& colour, int width, int height, AVPixelFormat format,
                                bool fullRange);

/// `tags`; what is left open in them is as in `otherwise`.
Conf::ColourInfo Completed(const Conf::ColourInfo& tags, const Conf::ColourInfo& otherwise);

/// Whether the components are red, green and blue, from a palette too.
bool IsRgb(AVPixelFormat format) noexcept;
/// The plain format behind one that means "full range" (yuvj420p), else the format itself.
AVPixelFormat PlainFormat(AVPixelFormat format) noexcept;
bool IsFullRangeFormat(AVPixelFormat format) noexcept;

} // namespace Kestra::FF
