// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Settings/SettingsTwoPassEncoding.h"

namespace Kestra::Proc {

SettingsTwoPassEncoding::~SettingsTwoPassEncoding() = default;

} // namespace Kestra::Proc
