// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "KestraExport.h"

namespace Kestra::Proc {

/// The effect that multiplies the alpha of pictures by a progress over time. It has no settings beside that progress,
/// so it is ordered by this id.
class KESTRA_EXPORT SettingsEffectVideoAlphaEnvelope {
public:
    static const char* const CLASS_ID;

    SettingsEffectVideoAlphaEnvelope() = delete;
};

} // namespace Kestra::Proc
