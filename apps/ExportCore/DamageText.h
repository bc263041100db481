// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::damageText: damage in words.
#pragma once

#include "Kestra/Proc/IMediaSource.h"
#include <string>

namespace ExportCore {

/// A sentence that names the file and the time, without a full stop.
std::string damageText(const Kestra::Proc::DamageReport& report);

} // namespace ExportCore
