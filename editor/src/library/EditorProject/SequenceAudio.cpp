#include "EditorProject/SequenceAudio.h"

#include "EditorProject/SampleDepth.h"
#include "Kestra/Base/Time.h"
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

} // namespace

SequenceAudio::SequenceAudio(std::shared_ptr<const Timeline> timeline, const ExportWindow& window,
                             const Conf::SampleInfo& format)
    : timeline(std::move(timeline))
    , sections(soundSections(*this->timeline, window, format.GetRate()))
    , samples(window.samples(format.GetRate()))
    , format(format)
    , sampleBits(SampleDepth::of(*this->timeline, sections).bits) {
    // Left open, it would change from clip to clip.
    if (format.GetFormatRecord()->format == Conf::SAMPLE_FORMAT_UNKNOWN)
        this->format.SetFormatRecord(Conf::SampleFmtRecord::Find(Conf::SAMPLE_FORMAT_FLTP));
}

bool SequenceAudio::HasSound(const Section& candidate) const {
    return timeline->clips()[candidate.clip].info.audio.has_value();
}

SequenceAudio::Block SequenceAudio::ReadAudio() {
    while (nextSample < samples) {
        if (section && nextSample >= section->end())
            Forget();
        OpenClip();
        const Block block = ReadClip();
        if (block && block->GetSampleCount() > drop)
            return Placed(block);
        if (block)
            drop -= block->GetSampleCount();
        else
            OpenSilence();
    }
    return nullptr;
}

void SequenceAudio::OpenClip() {
    if (section && clip)
        return;
    section = &sectionAt(sections, nextSample);
    if (!HasSound(*section))
        return OpenSilence();
    const std::int64_t place = section->skip + nextSample - section->first;
    const auto sound = filters().CreateResampler(timeline->source(section->clip).CreateAudioStream(), format);
    clip.put(sound);
    NoteLoss(*timeline->clips()[section->clip].info.audio);
    silent = false;
    landed = false;
    drop = 0;
    if (place > 0)
        sound->Seek(SamplesToTime(place, format.GetRate()), Proc::SeekMode::Exact);
}

void SequenceAudio::NoteLoss(const Proc::AudioTrackInfo& track) const {
    Proc::IMediaSource& source = timeline->source(section->clip);
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
    const std::int64_t left = section->end() - nextSample;
    if (silent && clip)
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::FilterFailed,
                                         "Silence ended " + std::to_string(left) + " samples too early"));
    boost::intrusive_ptr<Conf::IFormatCodecAudio> description;
    GetAudioFormat(description);
    clip.put(filters().CreateSilence(description, SamplesToTime(left, format.GetRate())));
    silent = true;
    landed = true;
    drop = 0;
}

SequenceAudio::Block SequenceAudio::ReadClip() {
    Block block = clip->ReadAudio();
    if (!block || landed)
        return block;
    landed = true;
    const std::int64_t place = section->skip + nextSample - section->first;
    drop = std::max<std::int64_t>(0, place - TimeToSamples(block->GetTime(), format.GetRate()));
    return block;
}

SequenceAudio::Block SequenceAudio::Placed(const Block& block) {
    const std::int64_t count = std::min(block->GetSampleCount() - drop, section->end() - nextSample);
    Block part = block->Slice(drop, count);
    drop = 0;
    const std::int64_t begin = SamplesToTime(nextSample, format.GetRate());
    nextSample += count;
    part->SetTime(begin);
    part->SetDuration(SamplesToTime(nextSample, format.GetRate()) - begin);
    if (nextSample >= samples)
        Forget();
    return part;
}

void SequenceAudio::Forget() {
    clip.close();
    section = nullptr;
}

void SequenceAudio::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& result) const {
    result = Conf::IFormatCodecAudio::Create();
    result->SetSampleFormat(format.GetFormatRecord()->format);
    result->SetSampleRate(format.GetRate());
    result->SetChannelLayout(format.GetLayoutRecord()->layout);
    result->SetSampleBits(sampleBits);
}

std::int64_t SequenceAudio::GetDuration() const {
    return SamplesToTime(samples, format.GetRate());
}

std::int64_t SequenceAudio::GetPosition() const {
    return SamplesToTime(nextSample, format.GetRate());
}

void SequenceAudio::Seek(std::int64_t time, Proc::SeekMode) {
    Forget();
    const std::int64_t clamped = std::clamp<std::int64_t>(time, 0, GetDuration());
    nextSample = std::min(TimeToSamples(clamped, format.GetRate()), samples);
}

std::string SequenceAudio::Describe() const {
    return "sound of " + std::to_string(sections.size()) + " clips from \"" +
           timeline->clips()[sections.front().clip].path.ToUtf8() + "\" on";
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
    nextSample = 0;
}

} // namespace Project
