// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::ExpectedFile: what a finished file has to hold.
#pragma once

#include "EditorPreset/Preset.h"
#include "ExportCore/PromisedProgramme.h"
#include "Kestra/Conf/CodecID.h"
#include "Kestra/Conf/NumberedName.h"
#include "Kestra/Proc/FileCheck.h"
#include <cstdint>
#include <optional>
#include <string>

namespace ExportCore {

/// A value. Times are engine time.
struct ExpectedFile {
    bool hasVideo = false;
    bool hasAudio = false;
    int furtherSounds = 0; ///< tracks beside that of the audio, as long
    std::int64_t frames = 0;
    std::int64_t videoDuration = 0;
    std::int64_t audioDuration = 0;
    PromisedProgramme programme;
    /// Where each picture is a file of its own: nothing tells how long they last.
    struct Pictures {
        Kestra::Conf::NumberedName name;
        std::uint32_t width = 0;
        std::uint32_t height = 0;
        std::string pixelFormat; ///< the engine's name; empty where any is right

        /// The sides become those that its encoder makes of them: a whole number of chroma samples.
        void fitTo(Kestra::Conf::CodecID codec);
    };
    std::optional<Pictures> pictures;
    /// Of an animated WebP file, whose times are exact to the millisecond.
    struct Animation {
        std::uint32_t width = 0;
        std::uint32_t height = 0;
        int plays = 0; ///< as CheckedStream says
    };
    std::optional<Animation> animation;

    /// Sets `animation` where the preset writes such a file, of pictures of that size.
    void expectAnimation(const Preset& preset, std::uint32_t width, std::uint32_t height);

    /// Throws Kestra::Proc::ProcException (OutputFailed) that says what the file lacks: a stream, a frame, a part of
    /// its length, the common start of picture and sound, the colour of its pictures, what it
    /// has to say of its programme; of numbered pictures their size and format, of an animation its size and how often
    /// it is shown.
    void require(const Kestra::Proc::CheckedFile& file) const;

private:
    void requireStreams(const Kestra::Proc::CheckedFile& file) const;
};

} // namespace ExportCore
