// SPDX-License-Identifier: GPL-3.0-or-later
// Timelines as JSON.
#pragma once

#include "Timeline/Reader/ITimelineReader.h"
#include <QJsonArray>
#include <QJsonObject>

namespace Cli {

/// "bars", "color", "tone", "silence".
const char* nameOf(Timeline::Generator::Kind kind);
QJsonArray jsonOf(const std::vector<Timeline::Finding>& findings);
/// Without its findings.
QJsonObject jsonOf(const Timeline::Document& document);

} // namespace Cli
