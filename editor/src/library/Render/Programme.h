// SPDX-License-Identifier: GPL-3.0-or-later
// Render::programmeOf: what the file of a timeline says of itself.
#pragma once

#include "EditorRenderExport.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "Render/Sequence.h"
#include "Render/Window.h"

namespace Render {

/// The timeline's name as title, its time code at the start of the window, and a chapter for each marker in the window:
/// from it to the next one, or to the window's end. Markers of the tracks and their items count as those of the whole;
/// of several at one place the first one does. One without a name is called by its comment, else by its number.
EDITORRENDER_EXPORT Kestra::Conf::ProgrammeInfo programmeOf(const Timeline::Document& document, const Window& window);
/// The same of a sequence, which may say something else of itself.
EDITORRENDER_EXPORT Kestra::Conf::ProgrammeInfo programmeOf(const Sequence& sequence, const Window& window);

} // namespace Render
