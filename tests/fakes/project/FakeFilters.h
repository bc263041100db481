// SPDX-License-Identifier: GPL-3.0-or-later
// Filters over fake frames and blocks; reading ahead is the engine's own.
#pragma once

#include "Kestra/Proc/IFilterFactory.h"
#include <atomic>
#include <memory>

namespace Project::Fakes {

/// Black frames have the number BLACK, silence the id SILENCE.
inline constexpr int BLACK = -1;
inline constexpr int SILENCE = -1;

class FakeFilterFactory : public Kestra::Proc::IFilterFactory {
public:
    /// Frames that went through resizers.
    int scaled() const { return *scaledFrames; }

    Video CreateResizer(const Video& source, const Kestra::Proc::SettingsResizer& settings,
                        const std::string& implName) override;
    Video CreateFrameRate(const Video& source, const Kestra::Proc::SettingsFilterFrameRate& settings,
                          const std::string& implName) override;
    Video CreateFrameRate(const Video& source, const std::string& implName) override;
    boost::intrusive_ptr<Kestra::Proc::IEffectHost> CreateEffectHost(const Video& source,
                                                                     const std::string& implName) override;
    Video CreateReadAhead(const Video& source, int frames) override;
    boost::intrusive_ptr<Kestra::Proc::IConcatenation> CreateConcatenation(const std::string& implName) override;
    Audio CreateResampler(const Audio& source, const Kestra::Conf::SampleInfo& target) override;
    Audio CreateDurationTrimmer(const Audio& source, const Kestra::Proc::SettingsFilterDurationTrimmer& settings,
                                const std::string& implName) override;
    Audio CreateReadAhead(const Audio& source, int blocks) override;
    Video CreateBlack(const boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo>& format,
                      std::int64_t duration) override;
    Audio CreateSilence(const boost::intrusive_ptr<Kestra::Conf::IFormatCodecAudio>& format,
                        std::int64_t duration) override;
    boost::intrusive_ptr<Kestra::Proc::IFrameBlender>
    CreateFrameBlender(const boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo>& format) override;
    boost::intrusive_ptr<Kestra::Proc::ISampleMixer> CreateSampleMixer(const Kestra::Conf::SampleInfo& format) override;
    Audio CreateTempo(const Audio& source, const boost::rational<long long>& speed, Kestra::Proc::Pitch pitch) override;
    Audio CreateLimiter(const Audio& source, double ceiling, double gain) override;
    boost::intrusive_ptr<Kestra::Proc::ILoudnessMeter> CreateLoudnessMeter() override;

private:
    std::shared_ptr<std::atomic<int>> scaledFrames = std::make_shared<std::atomic<int>>(0);
};

} // namespace Project::Fakes
