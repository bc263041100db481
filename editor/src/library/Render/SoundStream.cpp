// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/SoundStream.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/Filters/AudioFilterBase.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/ProcException.h"
#include "Render/Programme.h"
#include "Render/SampleDepth.h"
#include "Render/SequenceText.h"
#include "Render/Streams.h"
#include "Render/Survey.h"
#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace Render {

using namespace Kestra;

namespace {

constexpr SampleIndex NONE{0};
/// Mixed at a time where nothing else says how many.
constexpr SampleIndex MIXED_AT_ONCE{1024};

Proc::IFilterFactory& filters() {
    return Core::CoreManager::Instance().GetFilterFactory();
}

SoundTarget targetOf(const Survey& heard, const Conf::SampleInfo& format) {
    return SoundTarget(format, SampleDepth::of(heard.media).bits, heard.blends);
}

} // namespace

SoundStream::SoundStream(Sequence heard, const Window& window, const Conf::SampleInfo& format)
    : sequence(std::move(heard))
    , window(window)
    , grid(format.GetRate())
    , samples(window.samples(grid))
    , planner(sequence.document, window, grid)
    , target(targetOf(Survey::ofSound(planner, samples, *sequence.media), format))
    , programme(programmeOf(sequence, window)) {}

SoundStream::~SoundStream() {
    streams.letGo();
}

SoundStream::Block SoundStream::ReadAudio() {
    if (nextSample >= samples)
        return nullptr;
    if (nextSample >= sceneEnd)
        enter();
    if (scene.parts.empty())
        return placed(readSilence(left()));
    const Block block = isPlain(scene) ? readOne(scene.parts.front().material) : readMixed();
    streams.forgetLeft();
    return placed(block);
}

void SoundStream::enter() {
    streams.requireNoInterrupt();
    scene = planner.sceneAt(nextSample);
    sceneEnd = std::min(planner.endOf(scene), samples);
    silence = {};
    open.keepOnly(scene, *sequence.media);
}

MaterialSound& SoundStream::sounding(const Material& material) {
    if (MaterialSound* const heard = open.find([&](const MaterialSound& one) { return one.material() == material; }))
        return *heard;
    auto sound = std::make_unique<MaterialSound>(material, *sequence.media, grid, sequence.sound.pitch);
    sound->open(streams, nextSample, planner, target);
    return open.add(std::move(sound));
}

SoundStream::Block SoundStream::readOne(const Material& material) {
    MaterialSound& sound = sounding(material);
    if (sound.silenceBefore() > NONE) {
        Block block = readSilence(std::min(sound.silenceBefore(), left()));
        sound.passSilence(SampleIndex(block->GetSampleCount()));
        return block;
    }
    const SampleIndex count = std::min(sound.available(), left());
    return count > NONE ? sound.take(count) : readSilence(left());
}

SoundStream::Block SoundStream::readSilence(SampleIndex most) {
    if (!silence || silenceEnd <= nextSample) {
        silence = streams.open(filters().CreateSilence(target.description(), grid.Length(most).Value()));
        silenceEnd = nextSample + most;
    }
    const Block block = silence->ReadAudio();
    if (!block)
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::FilterFailed,
                                         "Silence ended " + std::to_string((silenceEnd - nextSample).Value()) +
                                             " samples too early"));
    return block->Slice(0, std::min(block->GetSampleCount(), most.Value()));
}

SoundStream::Block SoundStream::readMixed() {
    const SampleIndex count = std::min(std::min(inStep(scene.parts), left()), MIXED_AT_ONCE);
    mixed.clear();
    return mix(scene.parts, count);
}

SampleIndex SoundStream::inStep(const Parts& parts) {
    SampleIndex count = left();
    visitMaterials(parts, [&](const Material& material) {
        MaterialSound& sound = sounding(material);
        const SampleIndex own = sound.silenceBefore() > NONE ? sound.silenceBefore() : sound.available();
        if (own > NONE)
            count = std::min(count, own);
    });
    return count;
}

SoundStream::Block SoundStream::mix(const Parts& parts, SampleIndex count) {
    using Curve = Proc::MixVoice::Curve;
    std::vector<Proc::MixVoice> voices;
    for (const Part& part : parts) {
        if (part.fade) {
            const SampleIndex begin = planner.sampleAt(part.fade->begin);
            const SampleIndex at = nextSample - begin;
            const SampleIndex length = planner.sampleAt(part.fade->end) - begin;
            if (!part.from.empty())
                voices.push_back({mix(part.from, count), Curve::FadeOut, at, length});
            if (!part.to.empty())
                voices.push_back({mix(part.to, count), Curve::FadeIn, at, length});
            continue;
        }
        if (const Block block = taken(sounding(part.material), count))
            voices.push_back({block});
    }
    return mixing().Mix(voices, count);
}

SoundStream::Block SoundStream::taken(MaterialSound& sound, SampleIndex count) {
    const auto [place, first] = mixed.try_emplace(&sound);
    if (first && sound.silenceBefore() > NONE)
        sound.passSilence(count);
    else if (first && sound.available() > NONE)
        place->second = sound.take(count);
    return place->second;
}

Proc::ISampleMixer& SoundStream::mixing() {
    if (!mixer)
        mixer = filters().CreateSampleMixer(target.format());
    return *mixer;
}

/// Once all has been mixed.
void SoundStream::notePeak() {
    if (!mixer || mixer->Peak() <= 1)
        return;
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << 20 * std::log10(mixer->Peak());
    sequence.media->note(
        "The mix goes " + text.str() + " dB beyond full scale, " +
        (sequence.sound.ceiling ? "and its peaks are turned down" : "which samples in integers cannot hold"));
}

SoundStream::Block SoundStream::placed(const Block& block) {
    const Ticks begin = grid.Begin(nextSample);
    nextSample += SampleIndex(block->GetSampleCount());
    block->SetTime(begin.Value());
    block->SetDuration((grid.Begin(nextSample) - begin).Value());
    if (nextSample >= samples) {
        notePeak();
        forget();
    }
    return block;
}

void SoundStream::forget() {
    silence = {};
    open.clear();
    sceneEnd = SampleIndex(INT64_MIN);
}

void SoundStream::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const {
    format = target.description();
    if (!programme.IsEmpty())
        programme.TellIn(*format);
}

std::int64_t SoundStream::GetDuration() const {
    return grid.Length(samples).Value();
}

std::int64_t SoundStream::GetPosition() const {
    return grid.Begin(nextSample).Value();
}

void SoundStream::Seek(std::int64_t time, Proc::SeekMode) {
    forget();
    const std::int64_t clamped = std::clamp<std::int64_t>(time, 0, GetDuration());
    nextSample = std::min(grid.Nearest(Ticks(clamped)), samples);
}

std::string SoundStream::Describe() const {
    return "sound of " + describe(sequence);
}

void SoundStream::PreferFormat(const Conf::IFormatCodec& format) {
    if (const auto* audio = dynamic_cast<const Conf::IFormatCodecAudio*>(&format))
        target.prefer(*audio, !open.isEmpty() || silence);
}

void SoundStream::Reset() {
    streams.reset(); // first: it does not wait for ever
    forget();
    nextSample = NONE;
}

namespace {

using Audio = boost::intrusive_ptr<Proc::IStreamAudio>;

/// A track of sound that others go beside.
class SoundWithOthers final : public Proc::AudioFilterBase {
public:
    SoundWithOthers(const Audio& sound, std::vector<Audio> others)
        : AudioFilterBase(sound, "sound with further tracks")
        , others(std::move(others)) {}

    std::vector<Audio> GetFurtherTracks() const override { return others; }

private:
    const std::vector<Audio> others;
};

Audio createOneTrack(const Sequence& sequence, const Window& window, const Conf::SampleInfo& format) {
    const Audio sound(new SoundStream(sequence, window, format));
    const SoundOptions& options = sequence.sound;
    return options.ceiling ? filters().CreateLimiter(sound, *options.ceiling, options.gain) : sound;
}

} // namespace

boost::intrusive_ptr<Proc::IStreamAudio> createSoundStream(const Sequence& sequence, const Window& window,
                                                           const Conf::SampleInfo& format) {
    const Audio sound = createOneTrack(sequence, window, format);
    std::vector<Audio> others;
    for (const Sequence& track : sequence.furtherSounds)
        others.push_back(createOneTrack(track, window, format));
    return others.empty() ? sound : Audio(new SoundWithOthers(sound, std::move(others)));
}

} // namespace Render
