// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::PresetEdit: what a request changes in its preset.
#pragma once

#include "ExportCore/PresetSettings.h"
#include "ExportCoreExport.h"
#include "Media/Audio.h"
#include "Media/Video.h"
#include <string>

namespace Export {
class PresetProvider;
}

namespace ExportCore {

/// A value.
struct EXPORTCORE_EXPORT PresetEdit {
    /// Name of one of the preset's quality modifiers; empty for none.
    std::string modifier;
    PresetSettings settings;
    /// Its picture, or its sound, is not wanted.
    bool withoutVideo = false;
    bool withoutAudio = false;

    /// Takes what is not wanted out of the selected preset. Throws Refusal where nothing would be left.
    void dropMedia(Export::PresetProvider& provider) const;
    /// Brings the provider's selected preset to what is wanted for these inputs: first the modifier, without the media
    /// that are not wanted, then the size that suits the picture (limits turn with one that stands), then the settings
    /// on top, which are saved as the custom preset. Throws Refusal for a bitrate or a side outside the limits, as they
    /// are with everything else set.
    void apply(Export::PresetProvider& provider, const Media::Video& video, const Media::Audio& audio) const;
};

} // namespace ExportCore
