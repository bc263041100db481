// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::OutputEstimate: what a file will be like, before it is made.
#pragma once

#include "ExportCoreExport.h"
#include "KTime/KTime.h"
#include "Media/Audio.h"
#include "Media/Video.h"
#include <QtGlobal>

namespace Export {
class PresetProvider;
}

namespace ExportCore {

/// A value. The model is written down in docs/bitrates.md.
struct EXPORTCORE_EXPORT OutputEstimate {
    /// For what the provider has selected, edits included (PresetEdit), and `duration` of these inputs, an outro's
    /// length included. Null stands for a medium that the inputs lack or that is not exported; `sounds` is how many
    /// tracks the audio stands for. On the provider's thread; touches no file.
    static OutputEstimate of(const Export::PresetProvider& provider, const Media::Video* video,
                             const Media::Audio* audio, KTime duration, int sounds = 1);

    /// Of `part` of the file, from 0 to 1, that was made for trial, where the material decides: what remains is taken
    /// for the like of it. As rough as before; too little of it says nothing.
    void learn(qint64 bytes, double part);
    /// All of it was made, and took so many.
    void know(qint64 bytes);

    KTime duration;
    qint64 frames = 0;     ///< exact; 0 without picture
    qint64 videoBytes = 0; ///< 0 without picture
    qint64 audioBytes = 0; ///< 0 without sound
    qint64 sizeBytes = 0;  ///< of the whole file
    /// The material decides, as no bitrate was ordered: the size may well be half of that, or twice as much. Else it is
    /// met within what encoders keep to, some percent, and undershot, even by far, by material that needs less.
    bool rough = false;
    /// Nothing is compressed: but for what the container tells of itself it is that size.
    bool exact = false;

private:
    void resize(qint64 bytes);
};

} // namespace ExportCore
