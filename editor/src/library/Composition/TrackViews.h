// SPDX-License-Identifier: GPL-3.0-or-later
// Message::View of a composition's tracks and clips.
#pragma once

#include "Composition/Clip.h"
#include "Composition/Track.h"
#include "EditorModelExport.h"
#include "Message/View.h"

extern template class EDITORMODEL_EXPORT Message::View<Composition::Track>;
extern template class EDITORMODEL_EXPORT Message::View<Composition::Clip>;
