// Reads a finished file packet by packet, for those who must know that it is whole.
#pragma once

#include "Kestra/Base/ioPath.h"
#include "Kestra/Conf/FrameInfo.h"
#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "KestraExport.h"
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace Kestra::Proc {

struct CheckedStream {
    enum class Kind { Video, Audio, Subtitles, Cover, Other };

    Kind kind = Kind::Other;
    std::string codec;        ///< as the decoder library names it
    std::int64_t packets = 0; ///< those that are shown or heard; of subtitles those with text
    std::string language;     ///< as the container tells it; empty where it does not
    std::int64_t start = 0;   ///< engine time of the first of them, trimmed as the container says
    std::int64_t end = 0;     ///< engine time at which the last of them ends, trimmed likewise
    Conf::FrameInfo frame;
    Conf::ColourInfo colour;
    int sampleRate = 0;
    int channels = 0;
};

struct CheckedFile {
    std::string container;
    std::int64_t size = 0;     ///< bytes
    std::int64_t duration = 0; ///< engine time, as the container claims; 0 when it does not
    std::vector<CheckedStream> streams;
    Conf::ProgrammeInfo programme; ///< title, tags, chapters and cover
};

/// Reads every packet of the file to its end; decodes no more than it takes to tell the streams' formats. Throws
/// ProcException (OutputFailed) that says what is wrong when the file does not open, a packet is damaged or the reading
/// ends before the end of the file. `interrupted` is polled; once set, Interrupted is thrown.
KESTRA_EXPORT CheckedFile CheckFile(const ioPath& path, const std::atomic<bool>& interrupted);

} // namespace Kestra::Proc
