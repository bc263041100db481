// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/TimelineOpening.h"

#include "ExportCore/TimelineMedia.h"
#include "Kestra/Proc/ProcException.h"
#include "Timeline/DocumentEdit.h"
#include "Timeline/Reader/OtioReader.h"
#include "Timeline/Reader/OtioZipReader.h"
#include <utility>

namespace ExportCore {

using Timeline::Finding;

namespace {

Timeline::ReadingOptions readingOf(const TimelineOptions& options) {
    Timeline::ReadingOptions reading;
    reading.mediaRoot = Kestra::ioPath(options.mediaRoot);
    reading.timeline = options.timeline;
    reading.lenient = options.lenient;
    return reading;
}

} // namespace

bool TimelineOpening::isTimeline(const std::string& path) {
    return Timeline::OtioReader().reads(Kestra::ioPath(path));
}

TimelineOpening TimelineOpening::read(const std::string& path, const TimelineOptions& options,
                                      const Kestra::Proc::MediaLimits& limits, const std::atomic<bool>* interrupted) {
    TimelineOpening opening;
    opening.media = std::make_shared<Render::MediaPool>(limits);
    opening.options = options;
    TimelineMedia media(opening.media, interrupted);
    Timeline::ReadingOptions reading = readingOf(options);
    reading.lengthOf = [&media](const Timeline::MediaReference& reference, Timeline::Track::Kind kind) {
        return media.lengthOf(reference, kind);
    };
    reading.interrupted = interrupted;
    opening.reading = Timeline::OtioReader().read(Kestra::ioPath(path), reading);
    if (interrupted && *interrupted)
        KESTRA_THROW(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::SourceUnreadable,
                                                 "Reading \"" + path + "\" was interrupted"));
    if (!opening.reading.document)
        return opening;
    for (Finding& finding : media.check(*opening.reading.document))
        opening.reading.findings.push_back(std::move(finding));
    if (options.missing == TimelineOptions::Missing::Black)
        opening.reading.document = Timeline::withMissing(
            *Timeline::withBlackForMissingPictures(*opening.reading.document),
            [&media](const Timeline::MediaReference& reference) { return media.whyMissing(reference); });
    return opening;
}

std::vector<Timeline::MediaTarget> TimelineOpening::mediaNamedIn(const std::string& path,
                                                                 const TimelineOptions& options) {
    const Kestra::ioPath file(path);
    if (!isTimeline(path) || Timeline::OtioZipReader().reads(file))
        return {};
    return Timeline::OtioReader().read(file, readingOf(options)).named;
}

bool TimelineOpening::isFit() const {
    return reading.document && !reading.has(Finding::Kind::Error) &&
           (options.missing == TimelineOptions::Missing::Black || !reading.has(Finding::Kind::MissingMedia));
}

Render::Sequence TimelineOpening::sequence(const std::atomic<bool>* interrupted) const {
    Render::Sequence sequence = Render::Sequence::of(reading.document, media, interrupted);
    sequence.sound = options.sound;
    return sequence;
}

} // namespace ExportCore
