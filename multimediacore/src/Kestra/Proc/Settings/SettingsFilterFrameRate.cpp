// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"

namespace Kestra::Proc {

const SettingsFilterFrameRate::Rational SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE(0, 1);

} // namespace Kestra::Proc
