// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::Passes: how often an export looks at its pictures.
#pragma once

#include "ExportCoreExport.h"

class Preset;

namespace ExportCore {

/// A value.
struct EXPORTCORE_EXPORT Passes {
    /// `hasPictures` says whether the inputs have any, `scale` how many pixels are encoded for each that is read: every
    /// pass reads all of them, so the fewer are encoded the more one pass takes as long as the other.
    static Passes of(const Preset& preset, bool hasPictures = true, double scale = 1);

    int count = 1;
    /// How many times as long as the first one the second takes, as measured: a first pass need not look as closely,
    /// and makes no sound.
    double laterCosts = 1;
};

} // namespace ExportCore
