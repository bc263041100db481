// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SequenceSource: numbered pictures as one media file.
#pragma once

#include "Kestra/FF/Source/MediaSource.h"
#include "Kestra/FF/Source/SequenceFiles.h"
#include "Kestra/Proc/ISourceFactory.h"

namespace Kestra::FF {

/// What is told of it is told of its first picture's file.
class SequenceSource final : public Proc::IMediaSource, public RefCountImpl {
public:
    /// As ISourceFactory::OpenSequence.
    SequenceSource(const Proc::SettingsImageSequence& settings, const std::atomic<bool>* interrupted,
                   const Proc::MediaLimits& limits);

    const ioPath& GetPath() const override { return first->GetPath(); }
    const Proc::MediaInfo& GetInfo() const override { return info; }
    boost::intrusive_ptr<Proc::IStreamVideo> CreateVideoStream() override;
    boost::intrusive_ptr<Proc::IStreamAudio> CreateAudioStream() override;
    std::vector<Proc::DamageReport> TakeDamageReports() override { return first->TakeDamageReports(); }
    std::vector<Proc::SourceNote> TakeNotes() override { return first->TakeNotes(); }
    bool IsBeingRead() const override { return first->IsBeingRead(); }
    void Note(const std::string& what) override { first->Note(what); }

    const SequenceFiles& GetFiles() const { return files; }
    const Proc::SettingsImageSequence& GetSettings() const { return settings; }
    /// Of pictures, as far as may be read.
    std::int64_t GetCount() const;
    /// Both are told once in the source's life, whichever picture is the first. Thread-safe.
    void NoteMissing(std::int64_t index);
    void NoteConformed(std::int64_t index, const std::string& own, const std::string& wanted);
    /// The one that size, format and colour are of.
    MediaSource& GetFirst() { return *first; }

private:
    std::string MissingCount() const;

    const Proc::SettingsImageSequence settings;
    const SequenceFiles files;
    const boost::intrusive_ptr<MediaSource> first;
    Proc::MediaInfo info;
    std::atomic_flag missingNoted = ATOMIC_FLAG_INIT;
    std::atomic_flag conformedNoted = ATOMIC_FLAG_INIT;
};

} // namespace Kestra::FF
