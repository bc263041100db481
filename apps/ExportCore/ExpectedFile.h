// ExportCore::ExpectedFile: what a finished file has to hold.
#pragma once

#include "ExportCore/PromisedProgramme.h"
#include "ExportCoreExport.h"
#include "Kestra/Proc/FileCheck.h"
#include <cstdint>

namespace ExportCore {

/// A value. Times are engine time.
struct EXPORTCORE_EXPORT ExpectedFile {
    bool hasVideo = false;
    bool hasAudio = false;
    std::int64_t frames = 0;
    std::int64_t videoDuration = 0;
    std::int64_t audioDuration = 0;
    PromisedProgramme programme;

    /// Throws Kestra::Proc::ProcException (OutputFailed) that says what the file lacks: a stream, a frame, a part of
    /// its length, the common start of picture and sound, the colour of its pictures, what it
    /// has to say of its programme.
    void require(const Kestra::Proc::CheckedFile& file) const;
};

} // namespace ExportCore
