// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::MediaSource: an opened media file.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/FF/Probe/TrackDetails.h"
#include "Kestra/Proc/TrackChoice.h"
#include <atomic>
#include <mutex>

namespace Kestra::FF {

class MediaSource final : public Proc::IMediaSource, public RefCountImpl {
public:
    /// Opens and probes the file. Throws ProcException, also when `interrupted`, unless null, turns true meanwhile.
    MediaSource(const ioPath& path, const std::atomic<bool>* interrupted, const Proc::MediaLimits& limits,
                const Proc::TrackChoice& choice = {});

    const ioPath& GetPath() const override { return path; }
    const Proc::MediaInfo& GetInfo() const override { return info; }
    boost::intrusive_ptr<Proc::IStreamVideo> CreateVideoStream() override { return CreateVideoStreamAmong(1); }
    boost::intrusive_ptr<Proc::IStreamVideo> CreateVideoStreamAmong(int streams) override;
    boost::intrusive_ptr<Proc::IStreamAudio> CreateAudioStream() override;
    std::vector<Conf::Subtitles> ReadSubtitles(const std::vector<int>& tracks,
                                               const std::atomic<bool>& interrupted) override;
    std::vector<Proc::DamageReport> TakeDamageReports() override;
    std::vector<Proc::SourceNote> TakeNotes() override;
    bool IsBeingRead() const override { return readers > 0; }

    /// Stands around every call of a stream that may read the file. Thread-safe; they may be nested.
    class Reading {
    public:
        explicit Reading(MediaSource& source)
            : source(source) {
            ++source.readers;
        }
        ~Reading() { --source.readers; }
        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;

    private:
        MediaSource& source;
    };
    void Note(const std::string& what) override;

    const TrackDetails& GetDetails() const { return details; }
    /// Thread-safe. Repetitions of the last report within a tenth of a second are dropped.
    void Report(std::int64_t time, const std::string& what, bool incomplete = false);

private:
    ioPath path;
    Proc::MediaInfo info;
    TrackDetails details;
    std::atomic<int> readers{0};
    std::mutex mutex;
    std::vector<Proc::DamageReport> reports;
    std::vector<std::string> notes; ///< all that there ever were
    std::size_t notesTaken = 0;
};

} // namespace Kestra::FF
