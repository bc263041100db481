// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a finished file packet by packet, for those who must know that it is whole.
#pragma once

#include "Kestra/Base/ioPath.h"
#include "Kestra/Conf/FrameInfo.h"
#include "Kestra/Conf/NumberedName.h"
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
    std::string pixelFormat; ///< of numbered pictures: the engine's name; empty for others
    int sampleRate = 0;
    int channels = 0;
    std::string title{};    ///< as the container tells it, and as what follows
    bool isDefault = false; ///< players are to begin with it
    bool forced = false;    ///< of subtitles
    int plays = -1;         ///< of animated WebP: how often it is shown, 0 for ever; -1 for others
};

struct CheckedFile {
    std::string container;
    std::int64_t size = 0;     ///< bytes
    std::int64_t duration = 0; ///< engine time, as the container claims; 0 when it does not
    std::vector<CheckedStream> streams;
    Conf::ProgrammeInfo programme; ///< title, tags, chapters and cover
};

/// Reads every packet of the file to its end; decodes no more than it takes to tell the streams' formats, but every
/// picture of an animated WebP file, which has no checksums. Throws ProcException (OutputFailed) that says what is
/// wrong when the file does not open, a packet is damaged or the reading ends before the end of the file. `interrupted`
/// is polled; once set, Interrupted is thrown.
KESTRA_EXPORT CheckedFile CheckFile(const ioPath& path, const std::atomic<bool>& interrupted);

/// Likewise the pictures in a folder that are PNG or JPEG files so called, numbered from 0 without a gap, as one stream
/// without times. Each is read to its last byte, which has to be the picture's, with every checksum in it; all have to
/// be of one size and kind; the first and the last are decoded, too. Decoding every one would cost about as much again
/// as encoding them; what a write or a disk does to a file shows in its length, its structure and its checksums (of
/// which JPEG has none).
KESTRA_EXPORT CheckedFile CheckPictures(const ioPath& folder, const Conf::NumberedName& name,
                                        const std::atomic<bool>& interrupted);

} // namespace Kestra::Proc
