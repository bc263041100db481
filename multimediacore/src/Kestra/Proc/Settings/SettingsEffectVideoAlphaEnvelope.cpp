// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Settings/SettingsEffectVideoAlphaEnvelope.h"

namespace Kestra::Proc {

const char* const SettingsEffectVideoAlphaEnvelope::CLASS_ID = "effect.video.alpha-envelope";

} // namespace Kestra::Proc
