// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorModelExport.h"
#include <QString>

namespace Types {

/// A fresh id at each call, unique over processes and machines; letters, digits and '-' only, so fit for a file name.
EDITORMODEL_EXPORT QString nextUniqueId();

} // namespace Types
