// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IFrameBlender: pictures laid over and mixed with each other.
#pragma once

#include "Kestra/Proc/IDataVideo.h"

namespace Kestra::Proc {

/// Blends frames of one size. One thread at a time. A null frame is transparent; where all are null, the result of Mix
/// and Over is. The result has the time and duration of the first frame that is not null; pixels that blending leaves
/// as they are come back shared. Frames of another size or format than the blender was made for throw
/// std::invalid_argument.
class KESTRA_EXPORT IFrameBlender : public virtual IRefCountable {
public:
    using Frame = boost::intrusive_ptr<IDataVideo>;

    ~IFrameBlender() override;
    /// `weight` (0 to 1) of `to`, the rest of `from`. Opaque where both are opaque; else with alpha, the colours
    /// weighted by their alpha. Weights 0 and 1 share the pixels of the one that is shown.
    virtual Frame Mix(const Frame& from, const Frame& to, double weight) = 0;
    /// `top` over `bottom`. Over a null `bottom` the result keeps top's alpha, if any.
    virtual Frame Over(const Frame& bottom, const Frame& top) = 0;
    /// Over black: opaque. Null gives a black frame at time 0 that lasts for no time yet.
    virtual Frame Flatten(const Frame& frame) = 0;
};

} // namespace Kestra::Proc
