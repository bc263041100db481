// SPDX-License-Identifier: GPL-3.0-or-later
// Render::SoundTarget: what all sound of an export is brought to.
#pragma once

#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Proc/IMediaSource.h"

namespace Render {

/// The format of a stream of sound and what its consumer has said it makes of it. One thread at a time.
class SoundTarget {
public:
    /// `format` has a rate and a layout; an open sample format is float until a consumer prefers one. No sample has
    /// more than `bits`. Where anything is mixed, samples are in floating point whatever is preferred.
    SoundTarget(const Kestra::Conf::SampleInfo& format, int bits, bool mixes);

    const Kestra::Conf::SampleInfo& format() const { return sampleFormat; }
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecAudio> description() const;
    /// While something is `open` the sample format holds: between clips it must not change.
    void prefer(const Kestra::Conf::IFormatCodecAudio& wanted, bool open);
    /// Notes what the consumer takes away from the medium's sound.
    void noteLoss(Kestra::Proc::IMediaSource& medium) const;

private:
    void setFormat(std::int32_t wanted);
    void noteDepth(Kestra::Proc::IMediaSource& medium) const;

    Kestra::Conf::SampleInfo sampleFormat;
    const int bits;
    const bool mixes;
    /// What the encoder makes of it, as far as it has said.
    std::uint32_t encodedLayout = Kestra::Conf::CHANNEL_LAYOUT_UNKNOWN;
    bool layoutOrdered = false;
    std::int32_t encodedFormat = Kestra::Conf::SAMPLE_FORMAT_UNKNOWN;
    int bitsKept = 0;
};

} // namespace Render
