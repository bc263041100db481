// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::GeneratorSource: pictures or sound that are made, as a media file would give them.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IMediaSource.h"
#include "Kestra/Proc/Settings/SettingsGenerator.h"
#include <mutex>

namespace Kestra::FF {

class GeneratorSource final : public Proc::IMediaSource, public RefCountImpl {
public:
    /// As ISourceFactory::CreateGenerator.
    explicit GeneratorSource(const Proc::SettingsGenerator& settings);

    const ioPath& GetPath() const override { return path; }
    const Proc::MediaInfo& GetInfo() const override { return info; }
    boost::intrusive_ptr<Proc::IStreamVideo> CreateVideoStream() override;
    boost::intrusive_ptr<Proc::IStreamAudio> CreateAudioStream() override;
    std::vector<Proc::DamageReport> TakeDamageReports() override { return {}; }
    std::vector<Proc::SourceNote> TakeNotes() override;
    bool IsBeingRead() const override { return false; }
    void Note(const std::string& what) override;

private:
    void DescribePicture();
    void DescribeSound();

    const ioPath path; ///< empty
    const Proc::SettingsGenerator settings;
    Proc::MediaInfo info;
    std::mutex mutex;
    std::vector<std::string> notes; ///< all that there ever were
    std::size_t notesTaken = 0;
};

} // namespace Kestra::FF
