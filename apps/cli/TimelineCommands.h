// SPDX-License-Identifier: GPL-3.0-or-later
// What "info" and "validate" say of timelines.
#pragma once

#include "Timeline/Reader/ITimelineReader.h"
#include "cli/Options.h"
#include <QJsonObject>
#include <atomic>

namespace Cli {

/// Prints the timeline, and its findings on standard error, or puts both into `json` unless that is null. Returns
/// whether there is a timeline; findings alone make none unreadable.
/// Throws Kestra::Proc::ProcException when `interrupted` turns true, as the next one does.
bool describeTimeline(const std::string& input, const Options& options, const std::atomic<bool>& interrupted,
                      QJsonObject* json);

/// Prints every finding of every timeline. Returns EXIT_BAD_INPUT when there are others than warnings.
int validateTimelines(const Options& options, const std::atomic<bool>& interrupted);

} // namespace Cli
