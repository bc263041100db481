// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::PromisedProgramme: what a finished file has to say of its programme.
#pragma once

#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/Proc/FileCheck.h"
#include <cstdint>
#include <string>

namespace ExportCore {

/// A value. Times are engine time.
struct PromisedProgramme {
    std::string container;
    Kestra::Conf::ProgrammeInfo programme; ///< of which the container may hold less
    std::int64_t length = 0;               ///< what begins at the very end, or behind it, may be missing
    std::int64_t tolerance = 0;            ///< of the time at which a chapter begins

    /// What lies before the first chapter is one without a title where the container's chapters know lengths only.
    void addLeadingChapter();
    /// Empty, or what the file lacks: "it has no chapter at 00:00:05.000".
    std::string faultOf(const Kestra::Proc::CheckedFile& file) const;
};

} // namespace ExportCore
