// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/FilterFactory.h"

#include "Kestra/FF/Av/Implementation.h"
#include "Kestra/FF/Filter/Black.h"
#include "Kestra/FF/Filter/FrameBlender.h"
#include "Kestra/FF/Filter/Limiter.h"
#include "Kestra/FF/Filter/LoudnessMeter.h"
#include "Kestra/FF/Filter/ResamplerFF.h"
#include "Kestra/FF/Filter/Resizer.h"
#include "Kestra/FF/Filter/SampleMixer.h"
#include "Kestra/FF/Filter/Tempo.h"
#include "Kestra/Proc/Filters/Concatenation.h"
#include "Kestra/Proc/Filters/EffectHost.h"
#include "Kestra/Proc/Filters/FrameSampler.h"
#include "Kestra/Proc/Filters/PreferredFrameRate.h"
#include "Kestra/Proc/Filters/ReadAheadAudio.h"
#include "Kestra/Proc/Filters/ReadAheadVideo.h"

namespace Kestra::FF {

FilterFactory::Video FilterFactory::CreateResizer(const Video& source, const Proc::SettingsResizer& settings,
                                                  const std::string& implName) {
    RequireImplementation("resizer", implName);
    return MakeResizer(source, settings);
}

FilterFactory::Video FilterFactory::CreateFrameRate(const Video& source, const Proc::SettingsFilterFrameRate& settings,
                                                    const std::string& implName) {
    if (settings.GetFrameRate() == Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE)
        return CreateFrameRate(source, implName);
    RequireImplementation("frame rate filter", implName);
    return new Proc::FrameSampler(source, {Proc::SamplingRule(FrameGrid(settings.GetFrameRate()))});
}

FilterFactory::Video FilterFactory::CreateFrameRate(const Video& source, const std::string& implName) {
    RequireImplementation("frame rate filter", implName);
    return new Proc::PreferredFrameRate(source);
}

boost::intrusive_ptr<Proc::IEffectHost> FilterFactory::CreateEffectHost(const Video& source,
                                                                        const std::string& implName) {
    RequireImplementation("effect host", implName);
    return new Proc::EffectHost(source);
}

FilterFactory::Video FilterFactory::CreateReadAhead(const Video& source, int frames) {
    return new Proc::ReadAheadVideo(source, frames);
}

boost::intrusive_ptr<Proc::IConcatenation> FilterFactory::CreateConcatenation(const std::string& implName) {
    RequireImplementation("concatenation", implName);
    return new Proc::Concatenation;
}

FilterFactory::Audio FilterFactory::CreateResampler(const Audio& source, const Conf::SampleInfo& target) {
    return MakeResampler(source, target);
}

FilterFactory::Audio FilterFactory::CreateDurationTrimmer(const Audio& source,
                                                          const Proc::SettingsFilterDurationTrimmer& settings,
                                                          const std::string& implName) {
    RequireImplementation("duration trimmer", implName);
    return MakeDurationTrimmer(source, settings.GetDuration());
}

FilterFactory::Audio FilterFactory::CreateReadAhead(const Audio& source, int blocks) {
    return new Proc::ReadAheadAudio(source, blocks);
}

FilterFactory::Video FilterFactory::CreateBlack(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format,
                                                std::int64_t duration) {
    return MakeBlack(format, duration);
}

FilterFactory::Audio FilterFactory::CreateSilence(const boost::intrusive_ptr<Conf::IFormatCodecAudio>& format,
                                                  std::int64_t duration) {
    return MakeSilence(format, duration);
}

boost::intrusive_ptr<Proc::IFrameBlender>
FilterFactory::CreateFrameBlender(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) {
    return MakeFrameBlender(format);
}

boost::intrusive_ptr<Proc::ISampleMixer> FilterFactory::CreateSampleMixer(const Conf::SampleInfo& format) {
    return new SampleMixer(format);
}

FilterFactory::Audio FilterFactory::CreateTempo(const Audio& source, const boost::rational<long long>& speed,
                                                Proc::Pitch pitch) {
    return MakeTempo(source, speed, pitch);
}

FilterFactory::Audio FilterFactory::CreateLimiter(const Audio& source, double ceiling, double gain) {
    return MakeLimiter(source, ceiling, gain);
}

boost::intrusive_ptr<Proc::ILoudnessMeter> FilterFactory::CreateLoudnessMeter() {
    return new LoudnessMeter;
}

std::shared_ptr<Proc::IFilterFactory> MakeFilterFactory() {
    return std::make_shared<FilterFactory>();
}

} // namespace Kestra::FF
