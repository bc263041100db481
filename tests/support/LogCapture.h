// SPDX-License-Identifier: GPL-3.0-or-later
// TestSupport::LogCapture: the lines that go into the application's log.
#pragma once

#include <functional>
#include <glog/logging.h>
#include <string>
#include <vector>

namespace TestSupport {

/// One line: severity, source file without its folder, line tag, text.
struct LogLine {
    std::string severity;
    std::string file;
    int tag;
    std::string text;

    friend bool operator==(const LogLine& a, const LogLine& b) {
        return a.severity == b.severity && a.file == b.file && a.tag == b.tag && a.text == b.text;
    }
    friend std::ostream& operator<<(std::ostream& out, const LogLine& line) {
        return out << line.severity << ' ' << line.file << ':' << line.tag << " \"" << line.text << '"';
    }
};

/// From construction to destruction.
class LogCapture : public google::LogSink {
public:
    LogCapture() { google::AddLogSink(this); }
    ~LogCapture() override { google::RemoveLogSink(this); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    void send(google::LogSeverity severity, const char*, const char* file, int tag, const google::LogMessageTime&,
              const char* text, std::size_t length) override {
        lines.push_back({google::GetLogSeverityName(severity), file, tag, std::string(text, length)});
        if (onLine)
            onLine(lines.back());
    }

    std::vector<LogLine> lines;
    /// Told of every line.
    std::function<void(const LogLine&)> onLine;
};

} // namespace TestSupport
