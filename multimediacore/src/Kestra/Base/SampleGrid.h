// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::SampleGrid: the places of samples at a constant rate.
#pragma once

#include "Kestra/Base/Quantity.h"
#include "Kestra/Base/Time.h"
#include "KestraExport.h"

namespace Kestra {

/// A value. Sample 0 lies at time 0; samples may be negative.
class KESTRA_EXPORT SampleGrid {
public:
    /// Throws std::invalid_argument for a rate (samples a second) that is not positive.
    explicit SampleGrid(int rate);

    int GetRate() const { return rate; }
    Ticks Begin(SampleIndex index) const { return Ticks(SamplesToTime(index.Value(), rate)); }
    /// How long `count` samples from sample 0 on last.
    Ticks Length(SampleIndex count) const { return Begin(count); }
    /// The sample nearest to `time`; the number of samples that a duration holds.
    SampleIndex Nearest(Ticks time) const { return SampleIndex(TimeToSamples(time.Value(), rate)); }

private:
    int rate;
};

} // namespace Kestra
