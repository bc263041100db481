// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::ExportFacts: what is known of a finished file.
#pragma once

#include "ExportCoreExport.h"
#include "Kestra/Proc/FileCheck.h"
#include <QString>
#include <string>
#include <vector>

namespace ExportCore {

/// Read from the file itself after it was written.
struct EXPORTCORE_EXPORT ExportFacts {
    /// Of its streams.
    int countOf(Kestra::Proc::CheckedStream::Kind kind) const;

    QString path;
    qint64 sizeBytes = 0;
    qint64 durationMs = 0;
    qint64 frames = 0; ///< 0 without picture
    /// Of numbered pictures, which path tells the folder of; empty for files.
    QString firstPicture;
    QString lastPicture;
    int width = 0;
    int height = 0;
    std::string videoCodec; ///< empty without picture
    std::string audioCodec; ///< empty without sound
    int sampleRate = 0;     ///< of the first track of sound, as channels and codec
    int channels = 0;
    std::vector<Kestra::Proc::CheckedStream> streams; ///< each as it was found
    int chapters = 0;
    qint64 elapsedMs = 0;
    double speed = 0; ///< seconds of media a second
};

} // namespace ExportCore
