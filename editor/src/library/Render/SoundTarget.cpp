// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/SoundTarget.h"

#include "Render/SampleDepth.h"

namespace Render {

using namespace Kestra;

SoundTarget::SoundTarget(const Conf::SampleInfo& format, int bits, bool mixes)
    : sampleFormat(format)
    , bits(bits)
    , mixes(mixes) {
    setFormat(format.GetFormatRecord()->format);
}

void SoundTarget::setFormat(std::int32_t wanted) {
    // Left open, it would change from clip to clip.
    if (wanted == Conf::SAMPLE_FORMAT_UNKNOWN || mixes)
        wanted = SampleDepth::isDouble(wanted) ? Conf::SAMPLE_FORMAT_DBLP : Conf::SAMPLE_FORMAT_FLTP;
    sampleFormat.SetFormatRecord(Conf::SampleFmtRecord::Find(wanted));
}

boost::intrusive_ptr<Conf::IFormatCodecAudio> SoundTarget::description() const {
    auto description = Conf::IFormatCodecAudio::Create();
    description->SetSampleFormat(sampleFormat.GetFormatRecord()->format);
    description->SetSampleRate(sampleFormat.GetRate());
    description->SetChannelLayout(sampleFormat.GetLayoutRecord()->layout);
    description->SetSampleBits(bits);
    return description;
}

void SoundTarget::prefer(const Conf::IFormatCodecAudio& wanted, bool open) {
    const char* const ordered = Conf::IFormatCodecAudio::TAG_CHANNEL_LAYOUT_ORDERED;
    encodedLayout = wanted.GetChannelLayout();
    layoutOrdered = wanted.GetProperty().ChildExists(ordered) && wanted.GetProperty()[ordered].GetBool();
    encodedFormat = wanted.GetSampleFormat();
    bitsKept = wanted.GetSampleBits();
    if (!open && wanted.GetSampleFormat() != Conf::SAMPLE_FORMAT_UNKNOWN)
        setFormat(wanted.GetSampleFormat());
}

void SoundTarget::noteDepth(Proc::IMediaSource& medium) const {
    const Proc::AudioTrackInfo& track = *medium.GetInfo().audio;
    const bool isFloatingPoint = SampleDepth::isFloatingPoint(track.sampleFormat) && track.sampleBits > 0;
    if (isFloatingPoint && bitsKept > 0 && !SampleDepth::isFloatingPoint(encodedFormat))
        medium.Note("its samples in floating point became integers of " + std::to_string(bitsKept) +
                    " bits, which cut off what lies above full scale");
    else if (bitsKept > 0 && track.sampleBits > bitsKept)
        medium.Note("the " + std::to_string(track.sampleBits) + " bits of each sample became " +
                    std::to_string(bitsKept));
}

void SoundTarget::noteLoss(Proc::IMediaSource& medium) const {
    noteDepth(medium);
    const Proc::MediaInfo& info = medium.GetInfo();
    const std::uint32_t layout = info.audio->channelLayout;
    if (encodedLayout == Conf::CHANNEL_LAYOUT_UNKNOWN || encodedLayout == layout)
        return;
    const std::string track = info.audioTracks > 1 ? " (track " + std::to_string(info.audio->index) + ')' : "";
    const std::string own = Conf::LayoutRecord::Find(layout)->name + track;
    const std::string encoded = Conf::LayoutRecord::Find(encodedLayout)->name;
    if (Conf::IsDiscreteLayout(layout))
        medium.Note(own + " that do not say where they are heard are encoded as " + encoded);
    else if (Conf::IsDiscreteLayout(encodedLayout))
        medium.Note("sound of " + own + " is encoded as " + encoded + " that do not say where they are heard");
    else if (!layoutOrdered)
        medium.Note("sound of " + own + " is encoded as " + encoded);
}

} // namespace Render
