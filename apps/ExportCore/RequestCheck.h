// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::RequestCheck: what can be refused before anything opens.
#pragma once

#include "ExportCore/CutPoints.h"
#include "ExportCore/OutputTarget.h"
#include "ExportCore/PresetEdit.h"
#include "ExportCore/SequenceTarget.h"
#include "ExportCoreExport.h"
#include "Timeline/MediaReference.h"
#include <optional>
#include <vector>

class Preset;

namespace ExportCore {

class PresetCatalogue;
struct SequenceName;

/// Every operation throws Refusal for what it does not accept. Nothing is opened, made or changed.
struct EXPORTCORE_EXPORT RequestCheck {
    /// Each a regular file, or a timeline's folder, that can be read and is not empty; at least one, and a timeline
    /// alone.
    static void inputs(const QStringList& inputs);
    /// The output has a name, and it is not that of standard output.
    static void outputIsNamed(const ExportRequest& request);
    /// Not one of the inputs (through links neither), not standard output, and a place where a regular file can be put.
    static OutputTarget output(const ExportRequest& request);
    /// Likewise for pictures: a folder that is there, or one that can be made. Those that are called alike, if there
    /// are any, are regular files, none of them an input, and may be replaced.
    static SequenceTarget sequence(const ExportRequest& request, const SequenceName& sequence);
    /// Whichever of the two the preset makes.
    static void outputIsFit(const ExportRequest& request, const Preset& preset);
    /// Nothing that the output replaces is one of those files of a timeline, or a picture of those sequences, through
    /// links neither.
    static void outputIsNoneOf(const std::vector<Timeline::MediaTarget>& media, const ExportRequest& request,
                               const std::optional<Preset>& preset);
    /// Whether the path is, through whatever links, one of those files or a picture of those sequences.
    static bool isMedium(const QByteArray& path, const std::vector<Timeline::MediaTarget>& media);
    /// The output's name promises no other kind of file than the preset writes; where that makes a file of each picture
    /// it says how they are called (see SequenceName). A name without extension, or with one that stands for nothing,
    /// promises none.
    static void outputName(const ExportRequest& request, const Preset& preset);
    /// Likewise, with presets that would suit from that catalogue: reads no file.
    static void outputName(const ExportRequest& request, const Preset& preset, const PresetCatalogue& catalogue);
    /// What the request wants changed in the preset that the provider has selected: a quality that the preset has, and
    /// settings that read well and fit it.
    static PresetEdit presetEdit(const ExportRequest& request, const Export::PresetProvider& provider);
    /// The points in order and the export range not inverted, as far as that is known without the inputs.
    static void ranges(const ExportRequest& request);
    /// The part of the composition to export; zero to zero, which is all of it, when no point was given. It begins
    /// inside, and ends with the composition where it was to end behind that. The export range may reach into an outro
    /// of `outro` behind that part.
    static Types::Range streamRange(const ExportRequest& request, const CutPoints& cut, KTime duration,
                                    KTime outro = KTime(0));
    /// Whether the path is, through whatever links, one of the inputs.
    static bool isInput(const QByteArray& path, const QStringList& inputs);
    /// Whether the folder of that path is there, but lets this user make no files in it.
    static bool isClosed(const QByteArray& path);
    /// Whether the output, or a picture that is called as the sequence's are, is one of them.
    static bool replacesInput(const ExportRequest& request, const std::optional<SequenceName>& sequence);

    RequestCheck() = delete;
};

} // namespace ExportCore
