// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FoundFacts.h"

#include "ExportCore/ExpectedFile.h"
#include "ExportCore/SequenceName.h"
#include "Types/Time.h"
#include <algorithm>

namespace ExportCore {

ExportFacts FoundFacts::of(const Kestra::Proc::CheckedFile& file, const ExpectedFile& expected, const QString& path) {
    ExportFacts facts;
    facts.path = path;
    facts.sizeBytes = file.size;
    facts.streams = file.streams;
    facts.chapters = static_cast<int>(file.programme.chapters.size());
    const std::int64_t length = std::max(expected.videoDuration, expected.audioDuration);
    facts.durationMs = Types::fromAvTime(length).milliseconds();
    if (expected.pictures && !facts.streams.empty())
        facts.streams.front().end = expected.videoDuration; // nothing in them tells
    for (const Kestra::Proc::CheckedStream& stream : file.streams) {
        if (stream.kind == Kestra::Proc::CheckedStream::Kind::Video) {
            facts.frames = stream.packets;
            facts.width = static_cast<int>(stream.frame.width);
            facts.height = static_cast<int>(stream.frame.height);
            facts.videoCodec = stream.codec;
        } else if (stream.kind == Kestra::Proc::CheckedStream::Kind::Audio && facts.audioCodec.empty()) {
            facts.audioCodec = stream.codec;
            facts.sampleRate = stream.sampleRate;
            facts.channels = stream.channels;
        }
    }
    return facts;
}

void FoundFacts::namePictures(ExportFacts& facts, const SequenceName& sequence) {
    facts.firstPicture = QString::fromUtf8(sequence.pathOf(0));
    facts.lastPicture = QString::fromUtf8(sequence.pathOf(std::max<qint64>(facts.frames - 1, 0)));
}

} // namespace ExportCore
