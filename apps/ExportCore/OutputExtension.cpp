// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/OutputExtension.h"

#include "EditorPreset/Preset.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include <algorithm>
#include <vector>

namespace ExportCore {

std::string OutputExtension::of(const QByteArray& path) {
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    const int dot = name.lastIndexOf('.');
    return dot <= 0 ? std::string() : name.mid(dot + 1).toLower().toStdString();
}

bool OutputExtension::suits(const Preset& preset, const std::string& extension) {
    const std::vector<std::string> usual =
        Kestra::ClientAPI::ContainerLimits::Extensions(preset.containerId(), preset.hasVideo());
    return std::find(usual.begin(), usual.end(), extension) != usual.end();
}

} // namespace ExportCore
