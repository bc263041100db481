// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::CodecParametersFF: the format of encoded packets as a muxer needs it.
#pragma once

#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/FF/Picture/HdrMetadata.h"

namespace Kestra::FF {

/// Stands beside IFormatCodecVideo or IFormatCodecAudio in one object. A value; nothing in it changes after it was
/// made.
class CodecParametersFF {
public:
    virtual ~CodecParametersFF();

    const AVCodecParameters& GetParameters() const { return *parameters; }
    /// That of the encoder: one frame for pictures, one sample for audio.
    AVRational GetTimeBase() const { return timeBase; }
    /// Empty for audio.
    const HdrMetadata& GetHdrMetadata() const { return hdr; }

protected:
    CodecParametersFF(const AVCodecParameters& source, AVRational timeBase, const HdrMetadata& hdr);

private:
    CodecParametersHandle parameters;
    AVRational timeBase;
    HdrMetadata hdr;
};

/// A copy.
CodecParametersHandle CopyCodecParameters(const AVCodecParameters& source);

/// Descriptions of packets with these parameters; `description` is what else is told of them. The result is the
/// caller's.
boost::intrusive_ptr<Conf::IFormatCodec> MakeVideoParameters(const AVCodecParameters& parameters, AVRational timeBase,
                                                             const Core::Property& description,
                                                             const HdrMetadata& hdr = HdrMetadata());
boost::intrusive_ptr<Conf::IFormatCodec> MakeAudioParameters(const AVCodecParameters& parameters, AVRational timeBase,
                                                             const Core::Property& description);

/// Null when `format` is not one of these.
const CodecParametersFF* CodecParametersOf(const Conf::IFormatCodec& format) noexcept;

} // namespace Kestra::FF
