// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/CatalogueError.h"

namespace EditorPreset {

JsonPlace JsonPlace::at(const std::string& key) const {
    std::string escaped;
    for (const char letter : key) {
        if (letter == '~')
            escaped += "~0";
        else if (letter == '/')
            escaped += "~1";
        else
            escaped += letter;
    }
    return {file, pointer + "/" + escaped};
}

JsonPlace JsonPlace::at(std::size_t index) const {
    return {file, pointer + "/" + std::to_string(index)};
}

void JsonPlace::refuse(const std::string& reason, Kestra::SourcePlace place) const {
    Kestra::ThrowFrom(CatalogueError(file + ": " + (pointer.empty() ? std::string() : pointer + ": ") + reason), place);
}

} // namespace EditorPreset
