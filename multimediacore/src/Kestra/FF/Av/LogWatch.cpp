// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/LogWatch.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <utility>

extern "C" {
#include <libavutil/log.h>
}

namespace Kestra::FF {

namespace {

thread_local std::vector<std::string>* kept = nullptr;

// No exception may pass through the library's C frames.
void Keep(const char* format, va_list arguments) noexcept {
    try {
        std::array<char, 1024> text{};
        if (std::vsnprintf(text.data(), text.size(), format, arguments) > 0)
            kept->emplace_back(text.data());
    } catch (...) {
        kept = nullptr;
    }
}

} // namespace

LogWatch::LogWatch()
    : before(std::exchange(kept, &lines)) {}

void LogWatch::Offer(int level, const char* format, va_list arguments) noexcept {
    if (!kept || level > AV_LOG_WARNING || kept->size() >= MOST_LINES)
        return;
    va_list copy;
    va_copy(copy, arguments);
    Keep(format, copy);
    va_end(copy);
}

LogWatch::~LogWatch() {
    kept = before;
}

std::string LogWatch::Find(const std::vector<std::string>& openings) const {
    for (const std::string& line : lines)
        for (const std::string& opening : openings)
            if (line.compare(0, opening.size(), opening) == 0)
                return line.substr(0, line.find_last_not_of(".\n") + 1);
    return {};
}

} // namespace Kestra::FF
