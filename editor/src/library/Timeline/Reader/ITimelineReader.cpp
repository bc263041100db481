// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/ITimelineReader.h"

#include <algorithm>

namespace Timeline {

ITimelineReader::~ITimelineReader() = default;

bool Reading::has(Finding::Kind kind) const {
    return std::any_of(findings.begin(), findings.end(), [kind](const Finding& one) { return one.kind == kind; });
}

} // namespace Timeline
