// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::ISampleMixer: the sound of several streams as one.
#pragma once

#include "Kestra/Base/Quantity.h"
#include "Kestra/Proc/IDataAudio.h"
#include <vector>

namespace Kestra::Proc {

/// A part of a stream's sound and how loud it is.
struct MixVoice {
    enum class Curve { Flat, FadeIn, FadeOut }; ///< fades of equal power: sin or cos of a quarter turn

    boost::intrusive_ptr<IDataAudio> block;
    Curve curve = Curve::Flat;
    /// Of the block's first sample, counted from the beginning of the fade; may be negative or beyond it (then the
    /// fade's end values hold).
    SampleIndex at{};
    SampleIndex length{}; ///< of the fade
    double gain = 1;      ///< times the curve
};

/// Sums voices in floating point. One thread at a time.
class KESTRA_EXPORT ISampleMixer : public virtual IRefCountable {
public:
    ~ISampleMixer() override;
    /// All blocks have the mixer's format and `count` samples, else std::invalid_argument; no voices: silence. The
    /// result begins at time 0 and lasts for no time yet; it goes beyond full scale where the sum does. One voice that
    /// is left as it is comes back on the same samples.
    virtual boost::intrusive_ptr<IDataAudio> Mix(const std::vector<MixVoice>& voices, SampleIndex count) = 0;
    /// The greatest magnitude of any sample mixed so far; 1 is full scale.
    virtual double Peak() const = 0;
};

} // namespace Kestra::Proc
