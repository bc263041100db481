// SPDX-License-Identifier: GPL-3.0-or-later
// What samples an encoder is given, from its description and the stream.
#pragma once

#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/FF/Av/Handles.h"

namespace Kestra::FF {

struct EncodeSamples {
    AVSampleFormat format = AV_SAMPLE_FMT_NONE;
    int rate = 0;
    std::uint32_t layout = 0;
    int bits = 0; ///< that are kept of each sample; 0 when the codec is lossy
};

/// The description's rate, layout and format, the stream's where it leaves them open, each replaced by the nearest one
/// that `codec` takes: a rate not below when there is one, a layout of as many channels or fewer, a format that loses
/// nothing when there is one. Throws ProcException (CodecRefused) for more channels than the codec holds, and for
/// channels without speakers where it needs these.
EncodeSamples ChooseSamples(const Conf::IFormatCodecAudio& description, const Conf::IFormatCodecAudio& stream,
                            const AVCodec& codec);

/// Bitrate mode, bitrate and quality. Throws ProcException (CodecRefused) that names a refused value.
void SetAudioRateControl(AVCodecContext& context, const Conf::IFormatCodecAudio& description);

} // namespace Kestra::FF
