// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/EngineLog.h"

#include "Kestra/FF/Av/LogWatch.h"
#include "Kestra/FF/Av/MemoryWatch.h"
#include <array>
#include <atomic>
#include <cstdarg>
#include <cstdlib>
#include <string>
#include <utility>

extern "C" {
#include <libavutil/log.h>
}

namespace Kestra::FF {

namespace {

std::atomic<int> chosenLevel{AV_LOG_QUIET};
std::atomic<void (*)(const std::string&)> lineReceiver{nullptr};

constexpr std::size_t LONGEST_PIECE = 2048; // what is longer is cut

/// What has been logged of a line so far: libav writes some in pieces. Threads log to their very end: there is nothing
/// to destroy.
struct Line {
    std::array<char, 2 * LONGEST_PIECE> text;
    std::size_t length;
};
thread_local Line begun;
thread_local int printPrefix = 1;

void SendLines(void* object, int level, const char* format, va_list arguments,
               void (*receiver)(const std::string&)) noexcept {
    try {
        std::array<char, LONGEST_PIECE> piece{};
        av_log_format_line2(object, level, format, arguments, piece.data(), piece.size(), &printPrefix);
        for (const char* letter = piece.data(); *letter != '\0'; ++letter) {
            if (*letter == '\n')
                receiver(std::string(begun.text.data(), std::exchange(begun.length, 0)));
            else if (begun.length < begun.text.size())
                begun.text[begun.length++] = *letter;
        }
    } catch (...) { // no exception may pass through the library's C frames
        begun.length = 0;
    }
}

void OnLog(void* object, int level, const char* format, va_list arguments) {
    LogWatch::Offer(level, format, arguments);
    MemoryWatch::Offer(object, level, format, arguments);
    if (level > chosenLevel)
        return;
    if (const auto receiver = lineReceiver.load())
        SendLines(object, level, format, arguments, receiver);
    else
        av_log_default_callback(object, level, format, arguments);
}

// libav talks from its first call on, and SVT-AV1 on its own, past libav's log; nobody has asked either to.
const bool silenced = [] {
    av_log_set_callback(&OnLog);
    setenv("SVT_LOG", "-1", 0);
    return true;
}();

} // namespace

void SetLogReceiver(void (*receiver)(const std::string& line)) noexcept {
    lineReceiver = receiver;
}

void SetLogLevel(Proc::LogLevel level) noexcept {
    chosenLevel = level == Proc::LogLevel::Quiet     ? AV_LOG_QUIET
                  : level == Proc::LogLevel::Warning ? AV_LOG_WARNING
                                                     : AV_LOG_VERBOSE;
    av_log_set_level(chosenLevel);
}

} // namespace Kestra::FF
