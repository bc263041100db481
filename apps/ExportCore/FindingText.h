// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::textOf: what is found in a timeline, as exports tell it.
#pragma once

#include "Timeline/Finding.h"
#include <string>

namespace ExportCore {

/// Where in the file a finding stands is only told where its words name nothing that people find it by.
inline std::string textOf(const Timeline::Finding& finding) {
    const bool isNamed = !finding.place.empty() && finding.place.back() == '"';
    return isNamed ? finding.place + ": " + finding.text : finding.inWords();
}

} // namespace ExportCore
