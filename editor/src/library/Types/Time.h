// SPDX-License-Identifier: GPL-3.0-or-later
// The only two ways between the editor's milliseconds and the engine's time.
#pragma once

#include "EditorModelExport.h"
#include "KTime/KTime.h"
#include <cstdint>

namespace Types {

/// Engine ticks (Kestra::TIME_BASE a second) of a time; clamped to the ends of the 64-bit range.
EDITORMODEL_EXPORT std::int64_t toAvTime(KTime time);

/// The nearest millisecond to an engine time, halves away from zero.
EDITORMODEL_EXPORT KTime fromAvTime(std::int64_t time);

} // namespace Types
