// SPDX-License-Identifier: GPL-3.0-or-later
// What a medium holds, for people and for programs.
#pragma once

#include "Kestra/Proc/IMediaSource.h"
#include <QJsonObject>
#include <string>

namespace Cli {

/// A line for the whole; below it, indented, one for each track, tag and chapter. Each ends with its line break.
std::string mediaText(const std::string& path, const Kestra::Proc::MediaInfo& info);
QJsonObject mediaObject(const std::string& path, const Kestra::Proc::MediaInfo& info);

} // namespace Cli
