// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::runInChild: one export in a process of its own, which may crash or hang.
#pragma once

#include "ExportCore/ExportRequest.h"
#include "sweep/memory/MemoryFaults.h"

namespace Sweep {

/// How a process ended and what it had to say until then.
struct ChildEnd {
    enum class Kind { Came, Crashed, Hung };
    Kind kind = Kind::Came;
    int signal = 0;       ///< of a crash
    bool ended = false;   ///< the export told of its end, once
    bool stalled = false; ///< with the watchdog's words
    int status = -1;      ///< as in ExportOutcome
    char words[400] = ""; ///< of its failure
    bool failed = false;  ///< an allocation
    long ours = 0;        ///< allocations
    long codecs = 0;
    char asked[600] = "";  ///< who asked for what failed first
    char call[80] = "";    ///< of ours into the codecs, in which that was
    char fell[600] = "";   ///< where a crash was
    bool inCommit = false; ///< the crash was a throw while a change to the model was committed
    bool inCodecs = false; ///< the crash was in the codecs' own code
};

/// From where on allocations are counted, to the destruction of the job.
enum class From { TheBeginning, WholeProgress };

/// Hung is what has not ended after minutes.
ChildEnd runInChild(const ExportCore::ExportRequest& request, const MemoryFaults::Plan& plan,
                    From from = From::TheBeginning);

} // namespace Sweep
