// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TimelineCommands.h"

#include "ExportCore/PlainText.h"
#include "ExportCore/TimeText.h"
#include "ExportCore/TimelineOpening.h"
#include "ExportCore/TimelineTrial.h"
#include "Types/Time.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/JsonText.h"
#include "cli/TimelineJson.h"
#include <cstdio>

namespace Cli {
namespace {

using ExportCore::TimelineOpening;
using Kestra::Ticks;
using Timeline::Finding;

std::string plain(const std::string& text) {
    return ExportCore::PlainText::escaped(text);
}

std::string timeOf(Ticks time) {
    return ExportCore::TimeText::format(Types::fromAvTime(time.Value()));
}

std::string counted(std::size_t count, const char* one) {
    return std::to_string(count) + ' ' + one + (count == 1 ? "" : "s");
}

std::string mediaOf(const Timeline::Clip& clip) {
    const Timeline::MediaTarget& target = clip.media.target;
    if (const auto* file = std::get_if<Timeline::MediaFile>(&target))
        return file->path.ToUtf8();
    if (const auto* sequence = std::get_if<Timeline::ImageSequence>(&target))
        return sequence->folder.ToUtf8() + '/' + sequence->nameOf(0) + " ...";
    if (const auto* missing = std::get_if<Timeline::MissingMedia>(&target))
        return missing->url + " (" + missing->why + ')';
    return nameOf(std::get<Timeline::Generator>(target).kind);
}

std::string speedOf(const Timeline::Excerpt& excerpt) {
    if (excerpt.speed == 1)
        return {};
    if (excerpt.speed == 0)
        return ", frozen";
    return ", speed " + fractionText(excerpt.speed).toStdString();
}

void print(const Timeline::Stack& stack, const std::string& indent);

void print(const Timeline::Item& item, Ticks start, const std::string& indent) {
    const std::string head = indent + timeOf(start) + "  " + timeOf(item.duration) + "  ";
    const std::string off = item.enabled ? "" : ", disabled";
    if (const auto* clip = std::get_if<Timeline::Clip>(&item.content)) {
        const std::string from = timeOf(clip->excerpt.start - clip->origin.value_or(Ticks(0)));
        const std::string line =
            head + "clip \"" + item.name + "\" of " + mediaOf(*clip) + " from " + from + speedOf(clip->excerpt) + off;
        std::printf("%s\n", plain(line).c_str());
    } else if (const auto* nested = std::get_if<Timeline::Nested>(&item.content)) {
        std::printf("%s\n", plain(head + "stack \"" + item.name + '"' + speedOf(nested->excerpt) + off).c_str());
        print(*nested->stack, indent + "    ");
    } else {
        std::printf("%s\n", (head + "gap").c_str());
    }
}

void print(const Timeline::Stack& stack, const std::string& indent) {
    for (const Timeline::Track& track : stack.tracks()) {
        const char* const kind = track.kind() == Timeline::Track::Kind::Video ? "video" : "audio";
        const std::string line = indent + kind + " track \"" + track.name() + "\": " + timeOf(track.duration()) + ", " +
                                 counted(track.items().size(), "item") + ", " +
                                 counted(track.transitions().size(), "transition") +
                                 (track.isEnabled() ? "" : ", disabled");
        std::printf("%s\n", plain(line).c_str());
        for (std::size_t index = 0; index < track.items().size(); ++index)
            print(track.items()[index], track.startOf(index), indent + "  ");
    }
}

const char* labelOf(Finding::Kind kind) {
    return kind == Finding::Kind::Warning ? "warning" : "error";
}

TimelineOpening readTimeline(const std::string& input, const Options& options, const std::atomic<bool>& interrupted) {
    return TimelineOpening::read(input, options.timelines, options.mediaLimits, &interrupted);
}

/// With what rendering it would meet.
Timeline::Reading readToRender(const std::string& input, const Options& options, const std::atomic<bool>& interrupted) {
    TimelineOpening opening = readTimeline(input, options, interrupted);
    for (Finding& finding : ExportCore::obstaclesOf(opening, &interrupted))
        opening.reading.findings.push_back(std::move(finding));
    return std::move(opening.reading);
}

} // namespace

bool describeTimeline(const std::string& input, const Options& options, const std::atomic<bool>& interrupted,
                      QJsonObject* json) {
    const Timeline::Reading reading = readTimeline(input, options, interrupted).reading;
    if (json) {
        *json = reading.document ? jsonOf(*reading.document) : QJsonObject();
        json->insert(key("path"), QString::fromStdString(input));
        json->insert(key("findings"), jsonOf(reading.findings));
    } else {
        if (reading.document) {
            const auto& tracks = reading.document->tracks->tracks();
            const std::string line = input + ": timeline \"" + reading.document->name + "\", " +
                                     timeOf(reading.document->duration()) + ", " + counted(tracks.size(), "track");
            std::printf("%s\n", plain(line).c_str());
            print(*reading.document->tracks, "  ");
        }
        for (const Finding& finding : reading.findings)
            ErrorOutput::tell(labelOf(finding.kind), '"' + input + "\": " + finding.inWords());
    }
    return reading.document != nullptr;
}

int validateTimelines(const Options& options, const std::atomic<bool>& interrupted) {
    bool good = true;
    QJsonArray timelines;
    for (const std::string& input : options.inputs) {
        const Timeline::Reading reading = readToRender(input, options, interrupted);
        good =
            good && reading.document && !reading.has(Finding::Kind::Error) && !reading.has(Finding::Kind::MissingMedia);
        if (options.json)
            timelines.append(
                QJsonObject{{key("path"), QString::fromStdString(input)}, {key("findings"), jsonOf(reading.findings)}});
        else
            for (const Finding& finding : reading.findings)
                std::printf("%s\n", plain(input + ": " + labelOf(finding.kind) + ": " + finding.inWords()).c_str());
    }
    if (options.json)
        std::printf("%s\n", jsonLine(QJsonObject{{key("timelines"), timelines}}).c_str());
    return good ? EXIT_DONE : EXIT_BAD_INPUT;
}

} // namespace Cli
