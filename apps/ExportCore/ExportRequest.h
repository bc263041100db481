// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::ExportRequest: everything one export is asked for.
#pragma once

#include "ExportCore/TimePoint.h"
#include "ExportCore/TimelineOpening.h"
#include "ExportCore/TrackOptions.h"
#include "ExportCore/WatchdogLimits.h"
#include "Kestra/Proc/MediaLimits.h"
#include "Types/Range.h"
#include <QString>
#include <QStringList>
#include <optional>
#include <string>
#include <vector>

namespace ExportCore {

/// A value. Paths are UTF-8 on their way to the system, whatever the locale says.
struct ExportRequest {
    QStringList inputs; ///< media files, one after the other, or one timeline
    /// The id of a preset, or a tag, which means its default; empty: the one that suits outputPath.
    std::string presetId;
    /// Name of one of the preset's quality modifiers; the preset as it is without one.
    std::optional<std::string> quality;
    /// KEY=VALUE each, see PresetSettings; they count more than the quality.
    std::vector<std::string> settings;
    QString outputPath;
    /// Whether a file that stands at outputPath may be replaced.
    bool overwrite = false;
    /// Nothing is made: all is checked that can be checked before, the encoders are opened, the export is tried for
    /// some seconds to see how long it takes, and where a size is known to be too large for the disk it fails. An
    /// unfinished file is made and removed.
    bool dryRun = false;
    /// The part of the inputs to export, as CutPoints reads it; what is left open is their start and their end.
    std::optional<TimePoint> in;
    std::optional<TimePoint> out;
    std::optional<TimePoint> duration;
    /// Of a timeline, which names its sound itself, no track can be chosen.
    TrackOptions tracks;
    /// A window on the finished streams, the outro included, snapped to frames; zero to zero is none.
    Types::Range exportRange;
    /// Names the outro (see OutroPictures); empty for none.
    QString brandingName;
    /// The loudness that the sound is brought to, in LUFS; unset: it stays as loud as it is.
    std::optional<double> loudness;
    WatchdogLimits limits;
    /// What the inputs may claim of themselves; who claims more is refused.
    Kestra::Proc::MediaLimits mediaLimits;
    /// For an input that is a timeline, which must be the only one.
    TimelineOptions timelines;
};

} // namespace ExportCore
