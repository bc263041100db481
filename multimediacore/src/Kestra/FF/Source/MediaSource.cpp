// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/MediaSource.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Probe/MediaProbe.h"
#include "Kestra/FF/Source/AudioDecodeStream.h"
#include "Kestra/FF/Source/SubtitleReader.h"
#include "Kestra/FF/Source/VideoDecodeStream.h"
#include <algorithm>
#include <utility>

namespace Kestra::FF {

namespace {

constexpr std::size_t MAX_REPORTS = 1000;
constexpr std::int64_t SAME_DAMAGE = TIME_BASE / 10;

} // namespace

MediaSource::MediaSource(const ioPath& path, const std::atomic<bool>* interrupted, const Proc::MediaLimits& limits,
                         const Proc::TrackChoice& choice)
    : path(path) {
    static const std::atomic<bool> never{false};
    MediaProbe probe(path, interrupted ? *interrupted : never, limits, choice);
    probe.Run();
    info = probe.GetInfo();
    details = probe.GetDetails();
    reports = std::exchange(details.damage, {});
    notes = std::exchange(details.notes, {});
}

boost::intrusive_ptr<Proc::IStreamVideo> MediaSource::CreateVideoStreamAmong(int streams) {
    if (!info.video)
        Fail(Proc::TranscodingError::SourceUnreadable, "\"" + path.ToUtf8() + "\" holds no picture track");
    return new VideoDecodeStream(this, streams);
}

boost::intrusive_ptr<Proc::IStreamAudio> MediaSource::CreateAudioStream() {
    if (!info.audio)
        Fail(Proc::TranscodingError::SourceUnreadable, "\"" + path.ToUtf8() + "\" holds no sound track");
    return new AudioDecodeStream(this);
}

std::vector<Conf::Subtitles> MediaSource::ReadSubtitles(const std::vector<int>& tracks,
                                                        const std::atomic<bool>& interrupted) {
    const Reading reading(*this);
    SubtitleReader reader(path, details, tracks, interrupted);
    reader.Run();
    for (const std::string& trouble : reader.GetTroubles())
        Note(trouble);
    return reader.Take();
}

std::vector<Proc::DamageReport> MediaSource::TakeDamageReports() {
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(reports, {});
}

void MediaSource::Report(std::int64_t time, const std::string& what, bool incomplete) {
    const std::lock_guard<std::mutex> lock(mutex);
    // Two passes meet it twice.
    const bool isTold = std::any_of(reports.begin(), reports.end(), [&](const Proc::DamageReport& told) {
        return told.what == what && std::abs(told.time - time) < SAME_DAMAGE;
    });
    if (isTold || reports.size() >= MAX_REPORTS)
        return;
    // What codecs put before the start is no time of the media.
    reports.push_back({path, std::max<std::int64_t>(time, 0), what, incomplete});
}

std::vector<Proc::SourceNote> MediaSource::TakeNotes() {
    const std::lock_guard<std::mutex> lock(mutex);
    std::vector<Proc::SourceNote> taken;
    for (; notesTaken < notes.size(); ++notesTaken)
        taken.push_back({path, notes[notesTaken]});
    return taken;
}

void MediaSource::Note(const std::string& what) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (notes.size() < MAX_REPORTS && std::find(notes.begin(), notes.end(), what) == notes.end())
        notes.push_back(what);
}

} // namespace Kestra::FF
