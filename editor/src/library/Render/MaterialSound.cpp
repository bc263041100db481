// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/MaterialSound.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Kestra/Proc/ProcException.h"
#include "Render/MediaPlace.h"
#include <algorithm>

namespace Render {

using namespace Kestra;

namespace {

Proc::IFilterFactory& filters() {
    return Core::CoreManager::Instance().GetFilterFactory();
}

SampleIndex countOf(const Proc::IDataAudio& block) {
    return SampleIndex(block.GetSampleCount());
}

} // namespace

MaterialSound::MaterialSound(const Material& material, MediaPool& media, const SampleGrid& grid, Proc::Pitch pitch)
    : shown(material)
    , grid(grid)
    , source(media.open(material.clip->media))
    , pitch(pitch) {}

MediaPool::Source MaterialSound::generator(const SoundTarget& target, Ticks lasting) const {
    const auto& made = std::get<Timeline::Generator>(shown.clip->media.target);
    Proc::SettingsGenerator settings;
    settings.kind = made.kind == Timeline::Generator::Kind::Tone ? Proc::SettingsGenerator::Kind::Tone
                                                                 : Proc::SettingsGenerator::Kind::Silence;
    settings.frequency = made.frequency;
    settings.sampleRate = target.format().GetRate();
    settings.channelLayout = target.format().GetLayoutRecord()->layout;
    settings.duration = MulDivRound(lasting.Value(), shown.map.speed.numerator(), shown.map.speed.denominator());
    return Core::CoreManager::Instance().GetSourceFactory().CreateGenerator(settings);
}

boost::intrusive_ptr<Proc::IStreamAudio> MaterialSound::create(const boost::intrusive_ptr<Proc::IStreamAudio>& decoded,
                                                               const SoundTarget& target) const {
    const bool asItIs = shown.map.speed == 1;
    return filters().CreateResampler(asItIs ? decoded : filters().CreateTempo(decoded, shown.map.speed, pitch),
                                     target.format());
}

boost::intrusive_ptr<Proc::IStreamAudio> MaterialSound::decode(Streams& streams, const SoundTarget& target,
                                                               Ticks lasting) const {
    if (auto left = streams.takeLeft(source.get())) {
        left->Reset(); // also of the interrupt that ended its reading ahead
        return left;
    }
    const MediaPool::Source medium = source ? source : generator(target, lasting);
    if (!medium->GetInfo().audio)
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::SourceUnreadable, "\"" + medium->GetPath().ToUtf8() +
                                                                                       "\" has no sound, which \"" +
                                                                                       *shown.name + "\" would play"));
    return medium->CreateAudioStream();
}

void MaterialSound::open(Streams& streams, SampleIndex first, const SoundPlanner& planner, const SoundTarget& target) {
    streams.requireNoInterrupt();
    ended = shown.map.speed <= 0;
    if (ended) {
        if (source)
            source->Note(shown.map.speed < 0 ? "where it runs backwards it is silent"
                                             : "where it stands still it is silent");
        return;
    }
    // What is made begins where it is wanted, which may be before its cut.
    const SampleIndex cut = planner.sampleAt(shown.map.here);
    const SampleIndex begin = source ? cut : std::min(cut, first);
    const auto decoded = decode(streams, target, grid.Length(planner.endOf(shown) - begin));
    stream = streams.open(create(decoded, target), source ? decoded : nullptr);
    if (source)
        target.noteLoss(*source);
    const Ticks there = source ? mediaMapOf(shown, source->GetInfo()).there : Ticks(0);
    const auto& speed = shown.map.speed;
    const Ticks played(MulDivRound(there.Value(), speed.denominator(), speed.numerator()));
    place = grid.Nearest(played) + first - begin;
    before = std::max(SampleIndex(0), SampleIndex(0) - place);
    place = std::max(SampleIndex(0), place);
    if (place > SampleIndex(0))
        stream->Seek(grid.Begin(place).Value(), Proc::SeekMode::Exact);
}

void MaterialSound::leave() {
    block.reset();
    stream.leave(source.get());
}

SampleIndex MaterialSound::available() {
    while (!block && !ended) {
        block = stream->ReadAudio();
        ended = !block;
        if (!block)
            break;
        if (!std::exchange(landed, true))
            place = std::max(SampleIndex(0), place - grid.Nearest(Ticks(block->GetTime())));
        else
            place = SampleIndex(0);
        // Reading began earlier: so many samples are passed over.
        while (block && place >= countOf(*block)) {
            place -= countOf(*block);
            block = stream->ReadAudio();
            ended = !block;
        }
        if (block && place > SampleIndex(0))
            block = block->Slice(place.Value(), (countOf(*block) - place).Value());
    }
    return block ? countOf(*block) : SampleIndex(0);
}

MaterialSound::Block MaterialSound::take(SampleIndex count) {
    const SampleIndex all = countOf(*block);
    if (count == all)
        return std::exchange(block, nullptr);
    Block part = block->Slice(0, count.Value());
    block = block->Slice(count.Value(), (all - count).Value());
    return part;
}

} // namespace Render
