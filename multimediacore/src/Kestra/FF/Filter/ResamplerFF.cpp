// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/ResamplerFF.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Filter/AudioConversion.h"
#include <stdexcept>

namespace Kestra::FF {

boost::intrusive_ptr<Proc::IStreamAudio> MakeResampler(const boost::intrusive_ptr<Proc::IStreamAudio>& source,
                                                       const Conf::SampleInfo& target) {
    if (!source)
        KESTRA_THROW(std::invalid_argument("a resampler needs a stream; it was given none"));
    return new AudioConversion(source, target, std::nullopt, "resampler");
}

boost::intrusive_ptr<Proc::IStreamAudio> MakeDurationTrimmer(const boost::intrusive_ptr<Proc::IStreamAudio>& source,
                                                             std::int64_t duration) {
    if (!source)
        KESTRA_THROW(std::invalid_argument("a duration trimmer needs a stream; it was given none"));
    if (duration < 0)
        KESTRA_THROW(std::invalid_argument("a duration trimmer was given a negative duration"));
    return new AudioConversion(source, Conf::SampleInfo(), duration, "duration trimmer");
}

} // namespace Kestra::FF
