// SPDX-License-Identifier: GPL-3.0-or-later
// Factories of filters and effects that count, and whose products count.
#pragma once

#include "Kestra/Proc/IEffectFactory.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "fakes/counting/CountedStreams.h"

namespace Kestra::Fakes {

class CountedFilters final : public Proc::IFilterFactory {
public:
    explicit CountedFilters(Counter counter);

    Video CreateResizer(const Video& source, const Proc::SettingsResizer& settings,
                        const std::string& implName) override;
    Video CreateFrameRate(const Video& source, const Proc::SettingsFilterFrameRate& settings,
                          const std::string& implName) override;
    Video CreateFrameRate(const Video& source, const std::string& implName) override;
    boost::intrusive_ptr<Proc::IEffectHost> CreateEffectHost(const Video& source, const std::string& implName) override;
    Video CreateReadAhead(const Video& source, int frames) override;
    boost::intrusive_ptr<Proc::IConcatenation> CreateConcatenation(const std::string& implName) override;
    Audio CreateResampler(const Audio& source, const Conf::SampleInfo& target) override;
    Audio CreateDurationTrimmer(const Audio& source, const Proc::SettingsFilterDurationTrimmer& settings,
                                const std::string& implName) override;
    Audio CreateReadAhead(const Audio& source, int blocks) override;
    Video CreateBlack(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format, std::int64_t duration) override;
    Audio CreateSilence(const boost::intrusive_ptr<Conf::IFormatCodecAudio>& format, std::int64_t duration) override;
    boost::intrusive_ptr<Proc::IFrameBlender>
    CreateFrameBlender(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) override;
    boost::intrusive_ptr<Proc::ISampleMixer> CreateSampleMixer(const Conf::SampleInfo& format) override;
    Audio CreateTempo(const Audio& source, const boost::rational<long long>& speed, Proc::Pitch pitch) override;
    Audio CreateLimiter(const Audio& source, double ceiling, double gain) override;
    boost::intrusive_ptr<Proc::ILoudnessMeter> CreateLoudnessMeter() override;

private:
    void Call(const char* method) const;
    Video Counted(Video made, const char* name) const;
    Audio Counted(Audio made, const char* name) const;

    const Counter counter;
    const std::shared_ptr<Proc::IFilterFactory> engine;
};

class CountedEffects final : public Proc::IEffectFactory {
public:
    explicit CountedEffects(Counter counter);

    Effect CreateColorspaceConverter(const Proc::SettingsColorspaceConverter& settings,
                                     const std::string& implName) override;
    Effect CreateEffect(const std::string& settingsClassId, const Proc::TimeToProgress& progress,
                        const std::string& implName) override;

private:
    const Counter counter;
    const std::shared_ptr<Proc::IEffectFactory> engine;
};

} // namespace Kestra::Fakes
