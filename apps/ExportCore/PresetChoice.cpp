// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PresetChoice.h"

#include "ExportCore/NameList.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/OutputExtension.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/Refusal.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include <QFileInfo>
#include <algorithm>
#include <vector>

namespace ExportCore {
namespace {

bool holds(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Those that may be meant, the likeliest first.
std::vector<std::string> candidates(const std::string& extension, const PresetCatalogue& catalogue) {
    std::vector<std::string> ids;
    if (holds(catalogue.tags(), extension))
        ids.push_back(catalogue.defaultOf(extension));
    for (const std::string& tag : catalogue.tags())
        ids.push_back(catalogue.defaultOf(tag));
    ids.insert(ids.end(), catalogue.ids().begin(), catalogue.ids().end());
    return ids;
}

/// Its default, or else the first one that suits the extension.
PresetChoice ofTag(const std::string& tag, const std::string& extension, const PresetCatalogue& catalogue) {
    const std::string usual = catalogue.defaultOf(tag);
    std::vector<std::string> ids = catalogue.idsOf(tag);
    ids.insert(ids.begin(), usual);
    const auto suits = [&](const std::string& id) { return OutputExtension::suits(catalogue.preset(id), extension); };
    const auto found = std::find_if(ids.begin(), ids.end(), suits);
    if (found == ids.end() || *found == usual)
        return {usual, "the default of \"" + tag + '"'};
    return {*found, "the first of \"" + tag + "\" for ." + extension};
}

/// The usual one of each preset, each once.
std::string extensionsOf(const PresetCatalogue& catalogue) {
    std::vector<std::string> all;
    for (const std::string& id : catalogue.ids()) {
        const Preset preset = catalogue.preset(id);
        const std::vector<std::string> own =
            Kestra::ClientAPI::ContainerLimits::Extensions(preset.containerId(), preset.hasVideo());
        if (!own.empty() && !holds(all, '.' + own.front()))
            all.push_back('.' + own.front());
    }
    return NameList::joined(all, " or ");
}

/// Also one that is to be.
bool isFolder(const QString& path) {
    return path.endsWith(QLatin1Char('/')) || QFileInfo(path).isDir();
}

} // namespace

PresetChoice PresetChoice::of(const std::string& wanted, const QString& outputPath, const PresetCatalogue& catalogue) {
    if (holds(catalogue.ids(), wanted))
        return {wanted, {}};
    const std::string extension = OutputExtension::of(outputPath.toUtf8());
    if (holds(catalogue.tags(), wanted))
        return ofTag(wanted, extension, catalogue);
    if (!wanted.empty())
        NearNames::refuseUnknownPreset(wanted, catalogue.ids(), catalogue.tags());
    const std::string ask = "; name a preset (-p ID, see presets)";
    if (extension.empty() && isFolder(outputPath))
        KESTRA_THROW(Refusal("\"" + outputPath.toStdString() +
                             "\" is a folder: name a file in it, or a preset that makes pictures (-p png-sequence)"));
    if (extension.empty())
        KESTRA_THROW(Refusal("\"" + outputPath.toStdString() + "\" has no extension that would tell its kind" + ask));
    for (const std::string& id : candidates(extension, catalogue))
        if (OutputExtension::suits(catalogue.preset(id), extension))
            return {id, "the default for ." + extension};
    const bool isOfMedia = Kestra::ClientAPI::ContainerLimits::IsKnownExtension(extension);
    KESTRA_THROW(Refusal("No preset writes files that end in ." + extension +
                         (isOfMedia ? "; those that there are write " + extensionsOf(catalogue) : ask)));
}

} // namespace ExportCore
