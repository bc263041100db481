// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::TrackOptions: which tracks of the inputs, and what of their descriptions, an export takes.
#pragma once

#include "ExportCoreExport.h"
#include "Kestra/Proc/TrackChoice.h"
#include <string>

namespace ExportCore {

/// A value: by default the main picture and the main sound, and everything else that the file can hold.
struct EXPORTCORE_EXPORT TrackOptions {
    enum class Sound {
        Main,   ///< the inputs' default
        Chosen, ///< as `choice` says
        All,    ///< each a track of the file
        None,
    };

    bool picture = true;
    Sound sound = Sound::Main;
    Kestra::Proc::TrackChoice choice; ///< of Sound::Chosen
    bool metadata = true;             ///< title, tags, chapters, the tracks' languages and titles, the cover
    bool subtitles = true;

    /// Takes "all", "none", the number of a track as the container counts them, or a language, as in "ger", "de" or
    /// "de-AT". False, and nothing has changed, for anything else.
    bool chooseSound(const std::string& text);
};

} // namespace ExportCore
