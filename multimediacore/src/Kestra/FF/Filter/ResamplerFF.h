// SPDX-License-Identifier: GPL-3.0-or-later
// The filters over audio: another format, an exact length, silence.
#pragma once

#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Proc/IStreamAudio.h"

namespace Kestra::FF {

/// `source` in the format, rate and layout of `target`; what that leaves open stays. Exact to the sample: in all
/// round(duration x rate) samples, the first one at time 0. Throws std::invalid_argument for a null source.
boost::intrusive_ptr<Proc::IStreamAudio> MakeResampler(const boost::intrusive_ptr<Proc::IStreamAudio>& source,
                                                       const Conf::SampleInfo& target);

/// Exactly `duration` of engine time of `source`: what is over is cut, what is missing is silence.
/// Throws std::invalid_argument for a null source or a negative duration.
boost::intrusive_ptr<Proc::IStreamAudio> MakeDurationTrimmer(const boost::intrusive_ptr<Proc::IStreamAudio>& source,
                                                             std::int64_t duration);

/// Silence of the rate, layout and sample format of `format`; what that leaves open is 48 kHz, stereo and float.
/// Throws std::invalid_argument for a null format or a negative duration.
boost::intrusive_ptr<Proc::IStreamAudio> MakeSilence(const boost::intrusive_ptr<Conf::IFormatCodecAudio>& format,
                                                     std::int64_t duration);

} // namespace Kestra::FF
