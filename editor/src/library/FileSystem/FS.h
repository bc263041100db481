// SPDX-License-Identifier: GPL-3.0-or-later
// FS: joining and making paths.
#pragma once

#include "EditorPresetExport.h"
#include <QString>
#include <initializer_list>

namespace FS {

/// The components joined by single slashes; empty ones are left out, a leading slash of the first stays. `extension`,
/// with or without its dot, is appended to the last component unless it is empty or the result would be empty.
EDITORPRESET_EXPORT QString joinPath(std::initializer_list<QString> components, const QString& extension = QString());

/// Makes the folder and all folders above it. True when it stands afterwards, also when it stood before.
EDITORPRESET_EXPORT bool makePath(const QString& path);

} // namespace FS
