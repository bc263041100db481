// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::OutcomeText: how an export ended, or is going to go, in words.
#pragma once

#include "ExportCore/ExportOutcome.h"
#include <string>

namespace Cli {

struct OutcomeText {
    /// One line: the finished file.
    static std::string of(const ExportCore::ExportFacts& facts);
    /// Several lines: what is going to be made, its size, the room for it and the time that it takes.
    static std::string of(const ExportCore::ExportPlan& plan);
    /// "8 Mbit/s", "192 kbit/s": with as many places as it has, two at most.
    static std::string bitrate(std::int64_t bitsPerSecond);

    OutcomeText() = delete;
};

} // namespace Cli
