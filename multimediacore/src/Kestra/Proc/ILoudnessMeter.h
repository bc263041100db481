// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::ILoudnessMeter: how loud a programme is to those who hear it.
#pragma once

#include "Kestra/Proc/IDataAudio.h"
#include <optional>

namespace Kestra::Proc {

/// Of sound as ITU-R BS.1770-4 and EBU R 128 measure it.
struct Loudness {
    /// Of the whole, gated, in LUFS. None for sound that is too quiet (below -70 LUFS) or too short (below 0.4 s).
    std::optional<double> integrated;
    /// The highest peak of any channel between the samples too, 1 is full scale.
    double truePeak = 0;
};

/// One thread at a time.
class KESTRA_EXPORT ILoudnessMeter : public virtual IRefCountable {
public:
    ~ILoudnessMeter() override;
    /// The next part. Throws ProcException (FilterFailed) for channels that cannot be measured.
    virtual void Hear(const IDataAudio& block) = 0;
    /// Nothing more follows.
    virtual Loudness Finish() = 0;
};

} // namespace Kestra::Proc
