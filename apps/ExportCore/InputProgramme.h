// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::InputProgramme: what the inputs say of themselves, put together for one file.
#pragma once

#include "ExportCore/TrackOptions.h"
#include "ExportCoreExport.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "Render/Sequence.h"
#include <atomic>
#include <string>
#include <vector>

namespace ExportCore {

/// A value; any thread makes it.
struct EXPORTCORE_EXPORT InputProgramme {
    /// What the file of such inputs will hold.
    struct File {
        std::string container;
        bool picture = false;
        bool sound = false;
    };

    /// Of media that stand one after the other: title and tags of the first one, languages and titles of the tracks as
    /// far as all agree, the first cover, each one's chapters and subtitles at its place. Subtitles of one language are
    /// one track. Further sounds are named as the main one is, and with more than one sound it is told which of them
    /// are players' defaults: those of the first medium with sound. Says nothing that the file has no place for. Reads
    /// the subtitles, which takes long with large files. Each medium is told, as a note of its own, what of it is left
    /// out. Throws Refusal where a sound track was chosen and there is none, and Interrupted.
    static InputProgramme of(const Render::Sequence& sequence, const std::vector<Kestra::ioPath>& media,
                             const TrackOptions& options, const File& file, const std::atomic<bool>& interrupted);
    /// Notes for each medium of a timeline what of it is left out.
    static void noteLeftOut(const Render::Sequence& timeline, const TrackOptions& options, const File& file);

    Kestra::Conf::ProgrammeInfo programme;
    std::vector<std::string> notes; ///< what is lost, and is no single medium's
};

} // namespace ExportCore
