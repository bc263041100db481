// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/EngineLog.h"

#include "Kestra/FF/Av/LogWatch.h"
#include "Kestra/FF/Av/MemoryWatch.h"
#include <array>
#include <atomic>
#include <cstdarg>
#include <cstdlib>

extern "C" {
#include <libavutil/log.h>
}

namespace Kestra::FF {

namespace {

std::atomic<int> chosenLevel{AV_LOG_QUIET};
std::atomic<void (*)(const std::string&)> lineReceiver{nullptr};

// What has been logged of a line so far: libav writes some in pieces.
thread_local std::string begun;
thread_local int printPrefix = 1;

void SendLines(void* object, int level, const char* format, va_list arguments,
               void (*receiver)(const std::string&)) noexcept {
    try {
        std::array<char, 2048> text{};
        av_log_format_line2(object, level, format, arguments, text.data(), text.size(), &printPrefix);
        begun += text.data();
        for (std::size_t end = 0; (end = begun.find('\n')) != std::string::npos; begun.erase(0, end + 1))
            receiver(begun.substr(0, end));
    } catch (...) { // no exception may pass through the library's C frames
        begun.clear();
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
