// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/IFilterFactory.h"
#include <memory>

namespace Kestra::FF {

class FilterFactory final : public Proc::IFilterFactory {
public:
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
};

std::shared_ptr<Proc::IFilterFactory> MakeFilterFactory();

} // namespace Kestra::FF
