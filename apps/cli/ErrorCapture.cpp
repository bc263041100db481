// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ErrorCapture.h"

#include "cli/ErrorOutput.h"
#include <cerrno>
#include <chrono>
#include <exception>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <utility>

namespace Cli {
namespace {

/// Its last line may have no end.
void tellLines(int source) {
    std::string text;
    char buffer[4096];
    for (ssize_t count = 0; (count = ::read(source, buffer, sizeof buffer)) != 0;) {
        if (count < 0 && errno != EINTR)
            break;
        text.append(buffer, count > 0 ? static_cast<std::size_t>(count) : 0);
        for (std::size_t end = 0; (end = text.find_first_of("\r\n")) != std::string::npos; text.erase(0, end + 1))
            if (end > 0)
                ErrorOutput::log(text.substr(0, end));
    }
    if (!text.empty())
        ErrorOutput::log(text);
    ::close(source);
}

} // namespace

ErrorCapture::ErrorCapture()
    : before(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3)) {
    if (before < 0 || ::pipe2(pipe.data(), O_CLOEXEC) != 0 || !startReader()) {
        undo();
        return;
    }
    ErrorOutput::useDescriptor(before);
    ::dup2(pipe[1], STDERR_FILENO);
    ::close(std::exchange(pipe[1], -1));
}

bool ErrorCapture::startReader() {
    try {
        reader.Start("read-stderr", [source = pipe[0]] { tellLines(source); });
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void ErrorCapture::undo() {
    for (int& end : pipe)
        if (end >= 0)
            ::close(std::exchange(end, -1));
    if (before >= 0)
        ::close(std::exchange(before, -1));
}

ErrorCapture::~ErrorCapture() {
    if (before < 0)
        return;
    constexpr std::chrono::seconds PATIENCE{1};
    ::dup2(before, STDERR_FILENO); // with that the last writer has gone
    reader.JoinOrLeave(std::chrono::steady_clock::now() + PATIENCE);
    ErrorOutput::useDescriptor(STDERR_FILENO);
    ::close(before);
}

} // namespace Cli
