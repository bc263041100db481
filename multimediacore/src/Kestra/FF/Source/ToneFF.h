// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::ToneFF: a sine as a stream of sound.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/Filters/StreamBase.h"
#include "Kestra/Proc/Settings/SettingsGenerator.h"

namespace Kestra::FF {

/// Every sample is reckoned from its own number: the phase is the same wherever reading begins. All channels alike, in
/// planar floating point.
class ToneFF final : public Proc::StreamBase<Proc::IStreamAudio> {
public:
    explicit ToneFF(const Proc::SettingsGenerator& settings);

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override;
    std::int64_t GetDuration() const override { return settings.duration; }
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override {}
    std::string Describe() const override { return "a tone"; }
    void Reset() override { position = 0; }

private:
    float SampleAt(std::int64_t index) const;

    const Proc::SettingsGenerator settings;
    const std::int64_t total;
    std::int64_t position = 0; ///< samples
};

} // namespace Kestra::FF
