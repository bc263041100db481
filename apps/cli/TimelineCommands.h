// What "info" and "validate" say of timelines.
#pragma once

#include "Timeline/Reader/ITimelineReader.h"
#include "cli/Options.h"
#include <QJsonObject>

namespace Cli {

/// Whether the input is to be read as a timeline, by its name.
bool isTimeline(const std::string& input);

/// The timeline, with its findings about media as well.
Timeline::Reading readTimeline(const std::string& input, const Options& options);

/// Prints it, unless `json` takes it. Its findings are warnings; whether one of them is an error.
bool describeTimeline(const std::string& input, const Options& options, QJsonObject* json);

/// Prints every finding of every timeline and returns the exit code.
int validateTimelines(const Options& options);

} // namespace Cli
