// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/counting/CountedFilters.h"

#include "Kestra/FF/Filter/EffectFactory.h"
#include "Kestra/FF/Filter/FilterFactory.h"
#include "fakes/counting/CountedReadAhead.h"

namespace Kestra::Fakes {
namespace {

class CountedEffect final : public Proc::IEffectVideo, public RefCountImpl {
public:
    CountedEffect(boost::intrusive_ptr<Proc::IEffectVideo> inner, Counter counter)
        : inner(std::move(inner))
        , counter(std::move(counter)) {}

    boost::intrusive_ptr<Proc::IDataVideo> Apply(const boost::intrusive_ptr<Proc::IDataVideo>& picture) override {
        counter->Call("Effect.Apply");
        return inner->Apply(picture);
    }
    void ChangeFormat(Conf::IFormatCodecVideo& format) const override {
        counter->Call("Effect.ChangeFormat");
        inner->ChangeFormat(format);
    }
    void ChangePreference(Conf::IFormatCodecVideo& preferred) const override {
        counter->Call("Effect.ChangePreference");
        inner->ChangePreference(preferred);
    }
    void Reset() override {
        counter->Call("Effect.Reset");
        inner->Reset();
    }

private:
    const boost::intrusive_ptr<Proc::IEffectVideo> inner;
    const Counter counter;
};

} // namespace

CountedFilters::CountedFilters(Counter counter)
    : counter(std::move(counter))
    , engine(FF::MakeFilterFactory()) {}

void CountedFilters::Call(const char* method) const {
    counter->Call(std::string("FilterFactory.") + method);
}

CountedFilters::Video CountedFilters::Counted(Video made, const char* name) const {
    return new CountedVideo<>(std::move(made), counter, name);
}

CountedFilters::Audio CountedFilters::Counted(Audio made, const char* name) const {
    return new CountedAudio(std::move(made), counter, name);
}

CountedFilters::Video CountedFilters::CreateResizer(const Video& source, const Proc::SettingsResizer& settings,
                                                    const std::string& implName) {
    Call("CreateResizer");
    return Counted(engine->CreateResizer(source, settings, implName), "Resizer");
}

CountedFilters::Video CountedFilters::CreateFrameRate(const Video& source,
                                                      const Proc::SettingsFilterFrameRate& settings,
                                                      const std::string& implName) {
    Call("CreateFrameRate");
    return Counted(engine->CreateFrameRate(source, settings, implName), "FrameRate");
}

CountedFilters::Video CountedFilters::CreateFrameRate(const Video& source, const std::string& implName) {
    Call("CreateFrameRate");
    return Counted(engine->CreateFrameRate(source, implName), "PreferredFrameRate");
}

boost::intrusive_ptr<Proc::IEffectHost> CountedFilters::CreateEffectHost(const Video& source,
                                                                         const std::string& implName) {
    Call("CreateEffectHost");
    return new CountedEffectHost(engine->CreateEffectHost(source, implName), counter, "EffectHost");
}

CountedFilters::Video CountedFilters::CreateReadAhead(const Video& source, int frames) {
    Call("CreateReadAhead");
    const boost::intrusive_ptr<ReadAheadSource<CountedVideo<>>> watched(
        new ReadAheadSource<CountedVideo<>>(source, counter, "VideoReadAheadSource"));
    return new CountedVideoReadAhead(engine->CreateReadAhead(watched, frames), counter, "VideoReadAhead",
                                     watched.get());
}

boost::intrusive_ptr<Proc::IConcatenation> CountedFilters::CreateConcatenation(const std::string& implName) {
    Call("CreateConcatenation");
    return new CountedConcatenation(engine->CreateConcatenation(implName), counter, "Concatenation");
}

CountedFilters::Audio CountedFilters::CreateResampler(const Audio& source, const Conf::SampleInfo& target) {
    Call("CreateResampler");
    return Counted(engine->CreateResampler(source, target), "Resampler");
}

CountedFilters::Audio CountedFilters::CreateDurationTrimmer(const Audio& source,
                                                            const Proc::SettingsFilterDurationTrimmer& settings,
                                                            const std::string& implName) {
    Call("CreateDurationTrimmer");
    return Counted(engine->CreateDurationTrimmer(source, settings, implName), "DurationTrimmer");
}

CountedFilters::Audio CountedFilters::CreateReadAhead(const Audio& source, int blocks) {
    Call("CreateReadAhead");
    const boost::intrusive_ptr<ReadAheadSource<CountedAudio>> watched(
        new ReadAheadSource<CountedAudio>(source, counter, "AudioReadAheadSource"));
    return new CountedAudioReadAhead(engine->CreateReadAhead(watched, blocks), counter, "AudioReadAhead",
                                     watched.get());
}

CountedFilters::Video CountedFilters::CreateBlack(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format,
                                                  std::int64_t duration) {
    Call("CreateBlack");
    return Counted(engine->CreateBlack(format, duration), "Black");
}

CountedFilters::Audio CountedFilters::CreateSilence(const boost::intrusive_ptr<Conf::IFormatCodecAudio>& format,
                                                    std::int64_t duration) {
    Call("CreateSilence");
    return Counted(engine->CreateSilence(format, duration), "Silence");
}

boost::intrusive_ptr<Proc::IFrameBlender>
CountedFilters::CreateFrameBlender(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) {
    Call("CreateFrameBlender");
    return engine->CreateFrameBlender(format);
}

boost::intrusive_ptr<Proc::ISampleMixer> CountedFilters::CreateSampleMixer(const Conf::SampleInfo& format) {
    Call("CreateSampleMixer");
    return engine->CreateSampleMixer(format);
}

CountedFilters::Audio CountedFilters::CreateTempo(const Audio& source, const boost::rational<long long>& speed,
                                                  Proc::Pitch pitch) {
    Call("CreateTempo");
    return Counted(engine->CreateTempo(source, speed, pitch), "Tempo");
}

CountedFilters::Audio CountedFilters::CreateLimiter(const Audio& source, double ceiling, double gain) {
    Call("CreateLimiter");
    return Counted(engine->CreateLimiter(source, ceiling, gain), "Limiter");
}

boost::intrusive_ptr<Proc::ILoudnessMeter> CountedFilters::CreateLoudnessMeter() {
    Call("CreateLoudnessMeter");
    return engine->CreateLoudnessMeter();
}

CountedEffects::CountedEffects(Counter counter)
    : counter(std::move(counter))
    , engine(FF::MakeEffectFactory()) {}

CountedEffects::Effect CountedEffects::CreateColorspaceConverter(const Proc::SettingsColorspaceConverter& settings,
                                                                 const std::string& implName) {
    counter->Call("EffectFactory.CreateColorspaceConverter");
    return new CountedEffect(engine->CreateColorspaceConverter(settings, implName), counter);
}

CountedEffects::Effect CountedEffects::CreateEffect(const std::string& settingsClassId,
                                                    const Proc::TimeToProgress& progress, const std::string& implName) {
    counter->Call("EffectFactory.CreateEffect");
    return new CountedEffect(engine->CreateEffect(settingsClassId, progress, implName), counter);
}

} // namespace Kestra::Fakes
