// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::LoudnessGain: what brings a programme to a loudness.
#pragma once

#include "ExportCoreExport.h"
#include "Kestra/Proc/ILoudnessMeter.h"
#include <string>

namespace ExportCore {

/// A value.
struct EXPORTCORE_EXPORT LoudnessGain {
    /// Below it, as samples, what lies between them stays below the -1 dBTP that EBU R 128 has for the highest peak.
    static const double CEILING;                          ///< of full scale
    static constexpr double QUIETEST = -70, LOUDEST = -5; ///< targets, in LUFS

    /// Sound that has no loudness stays as it is, and so does what is more than 36 dB away from the target as far as it
    /// is more.
    /// `what` begins the note: "The sound".
    static LoudnessGain to(double targetLufs, const Kestra::Proc::Loudness& loudness,
                           const std::string& what = "The sound");
    /// "-14", "-23.5", "-14 LUFS" ...; throws Refusal for what is none, or outside QUIETEST to LOUDEST.
    static double parse(const std::string& text);

    double factor = 1;
    std::string note; ///< a sentence on what is done, without its full stop
};

} // namespace ExportCore
