// SPDX-License-Identifier: GPL-3.0-or-later
// What two presets differ in.
#pragma once

#include <QJsonObject>
#include <string>
#include <vector>

namespace Cli {

/// "/video/width: 1920 | 1280" for each setting, by its JSON pointer, in its order; "-" for one that is missing. Ids
/// are left out: they always differ.
std::vector<std::string> presetDifferences(const QJsonObject& first, const QJsonObject& second);

} // namespace Cli
