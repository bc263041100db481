// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/DamageText.h"

#include "ExportCore/TimeText.h"
#include "Types/Time.h"

namespace ExportCore {

std::string damageText(const Kestra::Proc::DamageReport& report) {
    return '"' + report.path.ToUtf8() + "\" is damaged at " + TimeText::format(Types::fromAvTime(report.time)) + ": " +
           report.what;
}

} // namespace ExportCore
