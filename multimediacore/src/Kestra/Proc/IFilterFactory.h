// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IFilterFactory: filters over streams.
#pragma once

#include "Kestra/Proc/IConcatenation.h"
#include "Kestra/Proc/IEffectHost.h"
#include "Kestra/Proc/IFrameBlender.h"
#include "Kestra/Proc/ILoudnessMeter.h"
#include "Kestra/Proc/ISampleMixer.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/IStreamVideo.h"
#include "Kestra/Proc/ImplNames.h"
#include "Kestra/Proc/Settings/Pitch.h"
#include "Kestra/Proc/Settings/SettingsFilterDurationTrimmer.h"
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"
#include "Kestra/Proc/Settings/SettingsResizer.h"
#include <boost/rational.hpp>
#include <string>

namespace Kestra::Proc {

/// Every filter holds its source; null sources throw std::invalid_argument. Filters that may have several
/// implementations are ordered by the name of one; FilterException (NotSupported) for a name that there is not.
class KESTRA_EXPORT IFilterFactory {
public:
    using Video = boost::intrusive_ptr<IStreamVideo>;
    using Audio = boost::intrusive_ptr<IStreamAudio>;

    virtual ~IFilterFactory();
    /// Pictures of any size, shape and pixel format in the frame that the settings give; those that have it already
    /// pass untouched. Keeps the pixel format unless the consumer prefers another.
    virtual Video CreateResizer(const Video& source, const SettingsResizer& settings,
                                const std::string& implName = ImplNames::DEFAULT) = 0;
    /// A constant frame rate: frame n shows what the source shows at the middle of its period; frame count =
    /// round(duration x rate). Repeated frames share their pixels.
    virtual Video CreateFrameRate(const Video& source, const SettingsFilterFrameRate& settings,
                                  const std::string& implName = ImplNames::DEFAULT) = 0;
    /// The rate that the consumer prefers, with frames that begin at time 0 and fill the source's duration. Where it
    /// prefers none, pictures pass as they are, each with a duration that reaches to the next one; only a source that
    /// has no rate either, such as a still picture, then comes at 25 a second.
    virtual Video CreateFrameRate(const Video& source, const std::string& implName = ImplNames::DEFAULT) = 0;
    /// Effects on pictures; none until some are added.
    virtual boost::intrusive_ptr<IEffectHost> CreateEffectHost(const Video& source,
                                                               const std::string& implName = ImplNames::DEFAULT) = 0;
    /// Reads `source` on a thread of its own, up to `frames` ahead.
    virtual Video CreateReadAhead(const Video& source, int frames) = 0;
    /// Streams one after the other.
    virtual boost::intrusive_ptr<IConcatenation>
    CreateConcatenation(const std::string& implName = ImplNames::DEFAULT) = 0;
    /// Another sample format, rate or channel layout; sample-exact: round(duration x rate) samples in all. What the
    /// target leaves open stays.
    virtual Audio CreateResampler(const Audio& source, const Conf::SampleInfo& target) = 0;
    virtual Audio CreateDurationTrimmer(const Audio& source, const SettingsFilterDurationTrimmer& settings,
                                        const std::string& implName = ImplNames::DEFAULT) = 0;
    virtual Audio CreateReadAhead(const Audio& source, int blocks) = 0;
    /// `duration` of black in the format's frame, rate and colour.
    virtual Video CreateBlack(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format, std::int64_t duration) = 0;
    virtual Audio CreateSilence(const boost::intrusive_ptr<Conf::IFormatCodecAudio>& format, std::int64_t duration) = 0;
    /// For frames of the format's size, in its pixel format or the sibling with alpha (Conf::BlendFormats); results
    /// likewise, with its colour tags and shape of pixels. Throws std::invalid_argument for a null format or one
    /// without a size, ProcException (NotSupported) for a pixel format that is of no pair.
    virtual boost::intrusive_ptr<IFrameBlender>
    CreateFrameBlender(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) = 0;
    /// Throws std::invalid_argument for sample formats but FLTP and DBLP, and for a format with anything open.
    virtual boost::intrusive_ptr<ISampleMixer> CreateSampleMixer(const Conf::SampleInfo& format) = 0;
    /// `source` at `speed` times its own, 1/100 to 100 (others: std::invalid_argument): exactly round(samples / speed)
    /// samples of FLTP, the first one at time 0. At speed 1 the source itself. Where the pitch is kept, sounds that
    /// begin suddenly are in their places to the sample, others near theirs.
    virtual Audio CreateTempo(const Audio& source, const boost::rational<long long>& speed, Pitch pitch) = 0;
    /// `source` times `gain`, 1/64 to 64, in samples of FLTP, none of which exceeds `ceiling` of full scale, 1/16 to 1
    /// (others: std::invalid_argument): what is louder is turned down some milliseconds ahead of its peak. Samples keep
    /// their number and places.
    virtual Audio CreateLimiter(const Audio& source, double ceiling, double gain) = 0;
    virtual boost::intrusive_ptr<ILoudnessMeter> CreateLoudnessMeter() = 0;
};

} // namespace Kestra::Proc
