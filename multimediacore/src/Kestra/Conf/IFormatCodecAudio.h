// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Conf/IFormatCodec.h"
#include "Kestra/Conf/SampleInfo.h"

namespace Kestra::Conf {

/// Description of sound or of an audio encoder.
class KESTRA_EXPORT IFormatCodecAudio : public IFormatCodec {
public:
    static const char* const TAG_SAMPLE_RATE;
    static const char* const TAG_CHANNEL_LAYOUT;
    static const char* const TAG_SAMPLE_FORMAT;
    static const char* const TAG_SAMPLE_BITS;
    /// Bool, in what an encoder prefers: its description names the layout, so a mix to it was ordered.
    static const char* const TAG_CHANNEL_LAYOUT_ORDERED;

    static boost::intrusive_ptr<IFormatCodecAudio> Create();
    ~IFormatCodecAudio() override;

    /// CHANNEL_LAYOUT_UNKNOWN, -1, SAMPLE_FORMAT_UNKNOWN when not set.
    std::uint32_t GetChannelLayout() const;
    void SetChannelLayout(std::uint32_t layout);
    std::int32_t GetSampleRate() const;
    void SetSampleRate(std::int32_t rate);
    std::int32_t GetSampleFormat() const;
    void SetSampleFormat(std::int32_t format);
    /// The bits that count in each sample, where they are kept as they are; 0 where nobody says, or where lossy coding
    /// has none.
    std::int32_t GetSampleBits() const;
    void SetSampleBits(std::int32_t bits);
};

} // namespace Kestra::Conf
