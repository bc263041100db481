// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::LogWatch: what libav complains of on this thread.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <string>
#include <vector>

namespace Kestra::FF {

/// While one exists, warnings and errors that libav logs on the thread that made it are kept, whatever the log level
/// is, the first MOST_LINES of them; they are logged as ever. For what a library only mentions where it should fail.
/// While another one exists on that thread, the outer one keeps nothing.
class LogWatch {
public:
    /// What a hostile file makes libav say has no end.
    static constexpr std::size_t MOST_LINES = 500;

    LogWatch();
    ~LogWatch();
    LogWatch(const LogWatch&) = delete;
    LogWatch& operator=(const LogWatch&) = delete;

    /// For the one callback of libav's log: keeps the line where one exists on this thread.
    static void Offer(int level, const char* format, va_list arguments) noexcept;

    /// The first line that begins with one of `openings`; empty when there is none.
    std::string Find(const std::vector<std::string>& openings) const;

private:
    std::vector<std::string> lines;
    std::vector<std::string>* before; ///< that of the outer one
};

} // namespace Kestra::FF
