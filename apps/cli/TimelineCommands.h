// What "info" and "validate" say of timelines.
#pragma once

#include "Timeline/Reader/ITimelineReader.h"
#include "cli/Options.h"
#include <QJsonObject>

namespace Cli {

/// Prints the timeline, and its findings on standard error, or puts both into `json` unless that is null. Returns
/// whether there is a timeline; findings alone make none unreadable.
bool describeTimeline(const std::string& input, const Options& options, QJsonObject* json);

/// Prints every finding of every timeline. Returns EXIT_BAD_INPUT when there are others than warnings.
int validateTimelines(const Options& options);

} // namespace Cli
