// What of a media file does not come into an export.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <string>
#include <vector>

namespace Kestra::FF {

/// Adds everything but these two tracks (-1 for one that there is not) as one note: "left out: 1 sound track (2, eng),
/// 2 subtitle tracks (3; 4), 5 chapters, tags"; none where that is nothing. Tracks have the container's numbers, from
/// 0. Of the tags those count that somebody wrote, not what programs note of themselves.
void NoteWhatIsLeftOut(const AVFormatContext& context, int video, int audio, std::vector<std::string>& notes);

} // namespace Kestra::FF
