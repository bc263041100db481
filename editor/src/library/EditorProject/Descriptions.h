// SPDX-License-Identifier: GPL-3.0-or-later
// The descriptions that a sequence gives its composition.
#pragma once

#include "EditorProject/HeardSound.h"
#include "EditorProject/SeenPictures.h"
#include "Media/Audio.h"
#include "Media/Video.h"
#include "Render/Sequence.h"
#include "Types/Range.h"
#include <vector>

namespace Project {

/// Frame as shown and nominal rate of the first clip with a picture that lies in the range, or else outside it;
/// 1920x1080 at 25 when there is none. Of clips at the same time the lowest one counts. An empty or inverted range is
/// all of it. In square pixels where the sequence says so.
Media::Video describeVideo(const Render::Sequence& sequence, const Types::Range& range = {});
/// Rate and layout of the first clip with sound in the range, or else outside it, of several that are heard together
/// the highest rate and the layout of most channels, and the SampleDepth of all in the
/// range; 48000 Hz stereo when there is none. With further sounds the highest of their rates, and the depth of them
/// all.
Media::Audio describeAudio(const Render::Sequence& sequence, const Types::Range& range = {});
/// As EditorProject::picturesIn().
std::vector<SeenPictures> picturesIn(const Render::Sequence& sequence, const Types::Range& range);
/// As EditorProject::soundsIn().
std::vector<HeardSound> soundsIn(const Render::Sequence& sequence, const Types::Range& range);

} // namespace Project
