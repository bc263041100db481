// ExportCore::ExportFacts: what is known of a finished file.
#pragma once

#include <QString>
#include <string>

namespace ExportCore {

/// Read from the file itself after it was written.
struct ExportFacts {
    QString path;
    qint64 sizeBytes = 0;
    qint64 durationMs = 0;
    qint64 frames = 0; ///< 0 without picture
    int width = 0;
    int height = 0;
    std::string videoCodec; ///< empty without picture
    std::string audioCodec; ///< empty without sound
    int sampleRate = 0;
    int channels = 0;
    qint64 elapsedMs = 0;
    double speed = 0; ///< seconds of media a second
};

} // namespace ExportCore
