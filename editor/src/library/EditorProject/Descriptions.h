// The descriptions that a timeline gives its composition.
#pragma once

#include "EditorProject/Timeline.h"
#include "EditorProjectExport.h"
#include "Media/Audio.h"
#include "Media/Video.h"

namespace Project {

/// Frame as shown and nominal rate of the first clip with a picture; 1920x1080 at 25 when there is none.
EDITORPROJECT_EXPORT Media::Video describeVideo(const Timeline& timeline);
/// Rate and layout of the first clip with sound, and the SampleDepth of all; 48000 Hz stereo when there is none.
EDITORPROJECT_EXPORT Media::Audio describeAudio(const Timeline& timeline);

} // namespace Project
