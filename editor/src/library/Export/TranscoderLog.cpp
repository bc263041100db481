// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/TranscoderLog.h"

#include <glog/logging.h>

namespace Export::TranscoderLog {

namespace {

/// Whichever file writes a line, it is recorded against the transcoder's own.
constexpr const char* SOURCE_FILE = "editor/src/library/Export/Transcoder.cpp";

google::LogSeverity glogSeverity(Severity severity) {
    return severity == Severity::Error ? google::GLOG_ERROR : google::GLOG_INFO;
}

} // namespace

void write(const Line& line, const std::string& details) {
    google::LogMessage(SOURCE_FILE, line.tag, glogSeverity(line.severity)).stream() << line.text << details;
}

} // namespace Export::TranscoderLog
