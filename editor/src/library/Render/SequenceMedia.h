// SPDX-License-Identifier: GPL-3.0-or-later
// Render::mediaSeen, mediaHeard, mixesSound, hasAny, placeOf: which media of a sequence are used, and where.
#pragma once

#include "EditorRenderExport.h"
#include "Kestra/Base/SampleGrid.h"
#include "Render/Sequence.h"
#include "Render/Window.h"
#include <optional>
#include <vector>

namespace Render {

/// The media with pictures in the window, each once, in the order in which they appear; of those at the same time the
/// lowest one first, also where it is hidden. None where the window has no pictures.
EDITORRENDER_EXPORT std::vector<MediaPool::Source> mediaSeen(const Sequence& sequence, const Window& window);
/// Likewise the media with sound.
EDITORRENDER_EXPORT std::vector<MediaPool::Source> mediaHeard(const Sequence& sequence, const Window& window,
                                                              const Kestra::SampleGrid& grid);
/// Whether several sounds are heard at a time in the window, or one goes over into another.
EDITORRENDER_EXPORT bool mixesSound(const Sequence& sequence, const Window& window, const Kestra::SampleGrid& grid);
/// Whether anything that is enabled has pictures, or sound, be it a medium or made.
EDITORRENDER_EXPORT bool hasAny(const Sequence& sequence, Timeline::Track::Kind kind);
/// Where the sequence begins to show or play what the file holds from `time` on, among the clips that end after `from`:
/// the first such place before `to`. A clip that ends before that time counts with its end.
EDITORRENDER_EXPORT std::optional<Kestra::Ticks> placeOf(const Sequence& sequence, const Kestra::ioPath& file,
                                                         Kestra::Ticks time, Kestra::Ticks from, Kestra::Ticks to);

} // namespace Render
