#include "EditorProject/SequenceAudio.h"

#include "EditorProject/SampleDepth.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/ProcException.h"
#include <algorithm>

namespace Project {

using namespace Kestra;

namespace {

Proc::IFilterFactory& filters() {
    return Core::CoreManager::Instance().GetFilterFactory();
}

SampleIndex CountOf(const Proc::IDataAudio& block) {
    return SampleIndex(block.GetSampleCount());
}

} // namespace

SequenceAudio::SequenceAudio(std::shared_ptr<const Timeline> timeline, const ExportWindow& window,
                             const Conf::SampleInfo& format)
    : timeline(std::move(timeline))
    , grid(format.GetRate())
    , spans(soundSpans(*this->timeline, window, grid))
    , samples(window.samples(grid))
    , format(format)
    , sampleBits(SampleDepth::of(*this->timeline, clipsOf(spans)).bits) {
    // Left open, it would change from clip to clip.
    if (format.GetFormatRecord()->format == Conf::SAMPLE_FORMAT_UNKNOWN)
        this->format.SetFormatRecord(Conf::SampleFmtRecord::Find(Conf::SAMPLE_FORMAT_FLTP));
}

bool SequenceAudio::HasSound(const SoundSpan& candidate) const {
    return timeline->clips()[candidate.clip].info.audio.has_value();
}

SequenceAudio::Block SequenceAudio::ReadAudio() {
    while (nextSample < samples) {
        if (span && nextSample >= span->end())
            Forget();
        OpenClip();
        const Block block = ReadClip();
        if (block && CountOf(*block) > drop)
            return Placed(block);
        if (block)
            drop -= CountOf(*block);
        else
            OpenSilence();
    }
    return nullptr;
}

void SequenceAudio::OpenClip() {
    if (span && clip)
        return;
    span = &spanAt(spans, nextSample);
    if (!HasSound(*span))
        return OpenSilence();
    const SampleIndex place = span->skip + nextSample - span->first;
    const auto sound = filters().CreateResampler(timeline->source(span->clip).CreateAudioStream(), format);
    clip.put(sound);
    NoteLoss(*timeline->clips()[span->clip].info.audio);
    silent = false;
    landed = false;
    drop = SampleIndex(0);
    if (place > SampleIndex(0))
        sound->Seek(grid.Begin(place).Value(), Proc::SeekMode::Exact);
}

void SequenceAudio::NoteLoss(const Proc::AudioTrackInfo& track) const {
    Proc::IMediaSource& source = timeline->source(span->clip);
    const bool isFloatingPoint = SampleDepth::isFloatingPoint(track.sampleFormat) && track.sampleBits > 0;
    if (isFloatingPoint && bitsKept > 0 && !SampleDepth::isFloatingPoint(encodedFormat))
        source.Note("its samples in floating point became integers of " + std::to_string(bitsKept) +
                    " bits, which cut off what lies above full scale");
    else if (bitsKept > 0 && track.sampleBits > bitsKept)
        source.Note("the " + std::to_string(track.sampleBits) + " bits of each sample became " +
                    std::to_string(bitsKept));
    if (encodedLayout == Conf::CHANNEL_LAYOUT_UNKNOWN || encodedLayout == track.channelLayout)
        return;
    const std::string own = Conf::LayoutRecord::Find(track.channelLayout)->name;
    const std::string encoded = Conf::LayoutRecord::Find(encodedLayout)->name;
    if (Conf::IsDiscreteLayout(track.channelLayout))
        source.Note(own + " that do not say where they are heard are encoded as " + encoded);
    else if (Conf::IsDiscreteLayout(encodedLayout))
        source.Note("sound of " + own + " is encoded as " + encoded + " that do not say where they are heard");
    else if (!layoutOrdered)
        source.Note("sound of " + own + " is encoded as " + encoded);
}

void SequenceAudio::OpenSilence() {
    const SampleIndex left = span->end() - nextSample;
    if (silent && clip)
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::FilterFailed,
                                         "Silence ended " + std::to_string(left.Value()) + " samples too early"));
    boost::intrusive_ptr<Conf::IFormatCodecAudio> description;
    GetAudioFormat(description);
    clip.put(filters().CreateSilence(description, grid.Length(left).Value()));
    silent = true;
    landed = true;
    drop = SampleIndex(0);
}

SequenceAudio::Block SequenceAudio::ReadClip() {
    Block block = clip->ReadAudio();
    if (!block || landed)
        return block;
    landed = true;
    const SampleIndex place = span->skip + nextSample - span->first;
    drop = std::max(SampleIndex(0), place - grid.Nearest(Ticks(block->GetTime())));
    return block;
}

SequenceAudio::Block SequenceAudio::Placed(const Block& block) {
    const SampleIndex count = std::min(CountOf(*block) - drop, span->end() - nextSample);
    Block part = block->Slice(drop.Value(), count.Value());
    drop = SampleIndex(0);
    const Ticks begin = grid.Begin(nextSample);
    nextSample += count;
    part->SetTime(begin.Value());
    part->SetDuration((grid.Begin(nextSample) - begin).Value());
    if (nextSample >= samples)
        Forget();
    return part;
}

void SequenceAudio::Forget() {
    clip.close();
    span = nullptr;
}

void SequenceAudio::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& result) const {
    result = Conf::IFormatCodecAudio::Create();
    result->SetSampleFormat(format.GetFormatRecord()->format);
    result->SetSampleRate(format.GetRate());
    result->SetChannelLayout(format.GetLayoutRecord()->layout);
    result->SetSampleBits(sampleBits);
}

std::int64_t SequenceAudio::GetDuration() const {
    return grid.Length(samples).Value();
}

std::int64_t SequenceAudio::GetPosition() const {
    return grid.Begin(nextSample).Value();
}

void SequenceAudio::Seek(std::int64_t time, Proc::SeekMode) {
    Forget();
    const std::int64_t clamped = std::clamp<std::int64_t>(time, 0, GetDuration());
    nextSample = std::min(grid.Nearest(Ticks(clamped)), samples);
}

std::string SequenceAudio::Describe() const {
    return "sound of " + std::to_string(spans.size()) + " clips from \"" +
           timeline->clips()[spans.front().clip].path.ToUtf8() + "\" on";
}

void SequenceAudio::PreferFormat(const Conf::IFormatCodec& preferred) {
    const auto* audio = dynamic_cast<const Conf::IFormatCodecAudio*>(&preferred);
    if (audio) {
        const char* const ordered = Conf::IFormatCodecAudio::TAG_CHANNEL_LAYOUT_ORDERED;
        encodedLayout = audio->GetChannelLayout();
        layoutOrdered = audio->GetProperty().ChildExists(ordered) && audio->GetProperty()[ordered].GetBool();
        encodedFormat = audio->GetSampleFormat();
        bitsKept = audio->GetSampleBits();
    }
    // Between clips of different formats the format must hold, so a clip that is open already decides.
    if (audio && !clip && audio->GetSampleFormat() != Conf::SAMPLE_FORMAT_UNKNOWN)
        format.SetFormatRecord(Conf::SampleFmtRecord::Find(audio->GetSampleFormat()));
}

void SequenceAudio::Reset() {
    clip.reset(); // first: it does not wait for ever
    Forget();
    nextSample = SampleIndex(0);
}

} // namespace Project
