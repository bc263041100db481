// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::ExportPlan: what an export is going to make.
#pragma once

#include "ExportCore/OutputEstimate.h"
#include <QString>
#include <boost/rational.hpp>
#include <optional>
#include <string>
#include <vector>

namespace ExportCore {

/// A value.
struct ExportPlan {
    /// As it is ordered; what only the other medium has is as it is by default.
    struct Stream {
        enum class Kind { Video, Audio, Subtitles, Cover };

        Kind kind = Kind::Video;
        std::string codec;     ///< the engine's name; of subtitles and a cover, as of a finished file's streams
        qint64 bitrateBps = 0; ///< 0 where none is ordered
        std::string profile;   ///< empty: the encoder chooses
        double quality = 0;    ///< in the codec's own scale; 0 where a bitrate or a profile decides
        int width = 0;
        int height = 0;
        boost::rational<long long> frameRate;
        int sampleRate = 0;
        int channels = 0;
        std::string language{}; ///< empty where none is told, as the title
        std::string title{};
        bool isDefault = false; ///< where files tell it: players begin with it
        bool forced = false;    ///< of subtitles
    };

    QString path; ///< of the output, as it was ordered
    std::string preset;
    std::string container;
    int passes = 1;
    std::vector<Stream> streams; ///< pictures, the tracks of sound, then the others
    int chapters = 0;
    OutputEstimate estimate;
    std::optional<qint64> freeBytes; ///< beside the output; nothing where that cannot be told
    qint64 exportMs = -1;            ///< how long the export takes; -1 when unknown
};

} // namespace ExportCore
