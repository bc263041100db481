// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/TimelineTrial.h"

#include "EditorProject/EditorProject.h"
#include "ExportCore/ClipsBetweenFrames.h"
#include "ExportCore/DamageText.h"
#include "Kestra/Proc/ProcException.h"

namespace ExportCore {
namespace {

using Timeline::Finding;

/// Whether the composition shows what is not there.
bool isMissed(const EditorProject& project, const Kestra::Proc::DamageReport& report) {
    const KTime end = project.duration() + KTime(1);
    const auto place = project.placeOf(report.path, report.time, KTime(0), end);
    return report.incomplete && place && *place < end;
}

Finding findingOf(const EditorProject& project, const Kestra::Proc::DamageReport& report) {
    return {isMissed(project, report) ? Finding::Kind::Error : Finding::Kind::Warning, {}, {}, damageText(report)};
}

/// Empty where its lengths can be told.
std::string whyTooShort(const EditorProject& project) {
    try {
        project.expectedLengths({}, project.hasPictures() ? &project.video() : nullptr, &project.audio());
        return {};
    } catch (const Kestra::Proc::ProcException& error) {
        return error.what();
    }
}

} // namespace

std::vector<Finding> obstaclesOf(const TimelineOpening& opening, const std::atomic<bool>* interrupted) {
    std::vector<Finding> findings;
    if (!opening.isFit())
        return findings;
    EditorProject project;
    try {
        project.show(opening.sequence(interrupted));
    } catch (const Kestra::Proc::ProcException& error) {
        if (interrupted && *interrupted)
            throw;
        return {{Finding::Kind::Error, {}, {}, error.what()}};
    }
    if (project.hasPictures())
        for (Finding& finding : clipsBetweenFrames(
                 *opening.reading.document,
                 Kestra::FrameGrid({project.video().frameRateNumerator, project.video().frameRateDenominator}),
                 {Kestra::Ticks(0), opening.reading.document->duration()}))
            findings.push_back(std::move(finding));
    if (const std::string why = whyTooShort(project); !why.empty())
        findings.push_back({Finding::Kind::Error, {}, {}, why});
    for (const Kestra::Proc::DamageReport& report : project.takeDamageReports())
        findings.push_back(findingOf(project, report));
    return findings;
}

} // namespace ExportCore
