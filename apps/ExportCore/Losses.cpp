// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Losses.h"

#include "ExportCore/ClipsBetweenFrames.h"
#include "ExportCore/FindingText.h"
#include "ExportCore/FirstPictures.h"
#include "ExportCore/MixedDown.h"
#include "ExportCore/SquarePixels.h"
#include "ExportCore/TimelineOpening.h"
#include "Types/Time.h"
#include <string>
#include <vector>

namespace ExportCore {
namespace {

using Kestra::Ticks;

void warnOfClips(ExportOutcome& outcome, const EditorProject& project, const Render::Sequence& sequence,
                 const Types::Range& range, const ExportRequest& request, const Export::PresetProvider& provider) {
    const std::string path = request.inputs.front().toStdString();
    if (!project.hasPictures() || !provider.preset().hasVideo() || !TimelineOpening::isTimeline(path))
        return;
    const Media::Video video = provider.applyPreset(&project.video());
    const Kestra::FrameGrid grid({video.frameRateNumerator, video.frameRateDenominator});
    const Stretch all{Ticks(0), sequence.document->duration()};
    const Stretch part{Ticks(Types::toAvTime(range.start)), Ticks(Types::toAvTime(range.end))};
    for (const Timeline::Finding& finding :
         clipsBetweenFrames(*sequence.document, grid, part.start < part.end ? part : all))
        outcome.warnings << QString::fromStdString('"' + path + "\": " + textOf(finding));
}

} // namespace

void Losses::tell(ExportOutcome& outcome, const EditorProject& project, const Render::Sequence& sequence,
                  const Types::Range& range, const ExportRequest& request, const Export::PresetProvider& provider) {
    const Preset preset = provider.preset();
    const std::vector<Project::SeenPictures> pictures = project.picturesIn(range);
    const FirstPictures first(pictures, request, preset);
    const boost::rational<long long> rate = provider.frameRate(&project.video());
    const boost::rational<long long> own(project.video().frameRateNumerator, project.video().frameRateDenominator);
    for (const std::string& note :
         {SquarePixels::note(pictures, preset), first.noteOnSize(), first.noteOnRate(rate == own ? rate : 0),
          MixedDown::note(project.soundsIn(range), project.audio().channelLayout, request, preset)})
        if (!note.empty())
            outcome.notes << QString::fromStdString(note);
    warnOfClips(outcome, project, sequence, range, request, provider);
}

} // namespace ExportCore
