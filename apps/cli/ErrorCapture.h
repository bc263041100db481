// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::ErrorCapture: what others write to standard error.
#pragma once

#include "Kestra/Base/LeavableThread.h"
#include <array>

namespace Cli {

/// While one exists every line that anything in the process writes to descriptor 2 is told by ErrorOutput as a log;
/// ErrorOutput itself writes to where that was. One at a time. Where there are no descriptors or threads to be had,
/// nothing is captured.
class ErrorCapture {
public:
    ErrorCapture();
    /// What was written before has been told.
    ~ErrorCapture();
    ErrorCapture(const ErrorCapture&) = delete;
    ErrorCapture& operator=(const ErrorCapture&) = delete;

private:
    bool startReader();
    void undo();

    int before = -1; ///< what standard error was
    std::array<int, 2> pipe{-1, -1};
    Kestra::LeavableThread reader;
};

} // namespace Cli
