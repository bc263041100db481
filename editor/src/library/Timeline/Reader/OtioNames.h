// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::mediaNamedIn: the files that a timeline names, wherever in it.
#pragma once

#include "Timeline/MediaReference.h"
#include "Timeline/Reader/MediaLocator.h"
#include "Timeline/Reader/OtioNode.h"
#include <vector>

namespace Timeline {

/// Each MediaFile and each ImageSequence that is there once, also those that nothing shows: of clips that are switched
/// off, references that are not the active one, other timelines of a collection. Of a sequence only its folder and the
/// names of its files are told.
std::vector<MediaTarget> mediaNamedIn(const OtioNode& root, const MediaLocator& locator);

} // namespace Timeline
