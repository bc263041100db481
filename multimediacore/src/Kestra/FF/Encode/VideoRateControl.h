// Bitrate, quality and speed of video encoders.
#pragma once

#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/FF/Av/OptionList.h"

namespace Kestra::FF {

/// Turns the description's bitrate mode into the encoder's terms. "quality": constant quality on the codec's own scale;
/// "abr": the bitrate on average; "vbr": the same, and with `boundedPeak` never above 1.5 times of it over two seconds;
/// "cbr": never above the bitrate over one second. Without a mode the quality counts, else the bitrate as "vbr", else
/// the encoder's default stands. Throws ProcException (CodecRefused) that names a refused value.
void SetRateControl(AVCodecContext& context, const Conf::IFormatCodecVideo& description, bool boundedPeak);

/// Threads and the encoder's own speed settings, by the number of processors. x264 gets three frame threads a processor
/// and two for its lookahead, which together gain about a tenth over its own choice; presets that do not look ahead
/// gain nothing and get one thread more than there are processors, since each holds pictures. `options` are only looked
/// at.
void SetSpeed(AVCodecContext& context, const OptionList& options);

/// Adds to the parameters that x265 has, or replaces one of them. The value goes in as it is, colons included.
void SetX265Parameter(AVCodecContext& context, const char* name, const char* value);

/// x265 writes to the terminal unless told otherwise; adds that to the parameters that it has.
void KeepX265Quiet(AVCodecContext& context);

/// The first of two passes: only what shapes the statistics.
void SetFastFirstPass(AVCodecContext& context);

} // namespace Kestra::FF
