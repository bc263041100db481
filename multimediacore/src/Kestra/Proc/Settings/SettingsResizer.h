// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::SettingsResizer: how pictures are brought to a frame.
#pragma once

#include "Kestra/Conf/FrameInfo.h"
#include "KestraExport.h"

namespace Kestra::Proc {

enum class AspectMode : int {
    Stretch = 0,   ///< the target size, the picture's shape ignored
    KeepSize = 1,  ///< the source's size; only the shape of the pixels is made square
    FitInside = 2, ///< the target where it is the source scaled, with pixels of the source's shape; else the largest
                   ///< frame of the source's shape inside the target, no bars
    Crop = 3,      ///< the target filled, what stands over is cut
    Letterbox = 4, ///< the target with the whole picture centred and black bars
};

enum class Interpolation : int { Nearest = 0, Bilinear = 1, Bicubic = 2, Lanczos = 3 };

class KESTRA_EXPORT SettingsResizer {
public:
    /// Aspect 0:0 in the target means square pixels; width or height 0: the source's.
    Conf::FrameInfo target;
    AspectMode aspectMode = AspectMode::Stretch;
    Interpolation interpolation = Interpolation::Nearest;
    /// A crop of the source in pixels, taken before anything else; all 0: none.
    std::uint32_t cropLeft = 0;
    std::uint32_t cropTop = 0;
    std::uint32_t cropRight = 0;
    std::uint32_t cropBottom = 0;

    /// Sides may be odd: the target's, and those of a source that is not scaled.
    bool oddSides = false;
    /// For layers: bars of Letterbox are transparent, and alpha is not flattened where the consumer prefers a format
    /// without; such pictures come in the sibling with alpha (Conf::BlendFormats) of what they would come in. Those
    /// that fill the target and have no alpha come as they would.
    bool transparentBars = false;

    /// The frame that a source frame comes out as. Sides are at least 2, and even unless they may be odd.
    Conf::FrameInfo GetOutputFrameSize(const Conf::FrameInfo& source) const;
};

} // namespace Kestra::Proc
