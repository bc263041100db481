// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::JobTally: what has become of several jobs.
#pragma once

#include "cli/ExitCode.h"
#include <string>
#include <vector>

namespace Cli {

/// Tells each of them on standard error as it comes, in words or as an object of the type "job".
class JobTally {
public:
    explicit JobTally(std::size_t count)
        : count(count) {}

    void begin(std::size_t index, const std::string& output) const;
    void skip(std::size_t index, const std::string& output);
    void end(std::size_t index, const std::string& output, int code);
    /// A signal came: nothing more is begun.
    void stop(int signalNumber) { signalCode = EXIT_SIGNAL_BASE + signalNumber; }

    /// 0 when all are done, even where a signal came as the last one was.
    int exitCode() const;
    /// "6 jobs: 3 done, 1 done before, 1 failed (number 3), 1 stopped (number 6)", and how many were not begun.
    std::string summary() const;
    bool anyBegun() const { return begun; }

private:
    void tell(const char* status, std::size_t index, const std::string& output) const;

    const std::size_t count;
    std::size_t done = 0;
    std::size_t before = 0;
    std::vector<std::size_t> failed;  ///< their numbers, from 1
    std::vector<std::size_t> stopped; ///< likewise
    bool begun = false;
    int signalCode = 0;
};

} // namespace Cli
