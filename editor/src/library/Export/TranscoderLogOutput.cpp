// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/TranscoderLogOutput.h"

#include <glog/logging.h>

namespace Export {

namespace {

void (*lineReceiver)(const std::string& line) = nullptr;

class Forwarder : public google::LogSink {
public:
    void send(google::LogSeverity severity, const char*, const char* file, int line, const google::LogMessageTime& time,
              const char* message, std::size_t length) override {
        lineReceiver(ToString(severity, file, line, time, message, length));
    }
};

} // namespace

void setTranscoderLogReceiver(void (*receiver)(const std::string& line)) {
    static auto& forwarder = *new Forwarder;
    lineReceiver = receiver;
    google::AddLogSink(&forwarder);
    // Before its initialisation the library writes to standard error, whatever else it is told.
    if (!google::IsGoogleLoggingInitialized())
        google::InitGoogleLogging("transcoder");
    // Past every severity: nothing is written to standard error or to files besides.
    FLAGS_logtostderr = false;
    FLAGS_stderrthreshold = google::NUM_SEVERITIES;
    for (int severity = 0; severity < google::NUM_SEVERITIES; ++severity)
        google::SetLogDestination(severity, "");
}

void setTranscoderLogOutput(TranscoderLogOutput output) {
    FLAGS_logtostderr = !lineReceiver;
    FLAGS_minloglevel = output == TranscoderLogOutput::None ? google::NUM_SEVERITIES : google::GLOG_INFO;
}

} // namespace Export
