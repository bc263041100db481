// Kestra::Core::IFilterFactory: filters over streams.
#pragma once

#include "Kestra/Proc/IConcatenation.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/IStreamVideo.h"
#include "Kestra/Proc/Settings/SettingsFilterDurationTrimmer.h"
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"
#include "Kestra/Proc/Settings/SettingsResizer.h"

namespace Kestra::Core {

/// Every filter holds its source; null sources throw std::invalid_argument.
class KESTRA_EXPORT IFilterFactory {
public:
    using Video = boost::intrusive_ptr<Proc::IStreamVideo>;
    using Audio = boost::intrusive_ptr<Proc::IStreamAudio>;

    virtual ~IFilterFactory();
    /// Pictures of any size, shape and pixel format in the frame that the settings give; those that have it already
    /// pass untouched. Keeps the pixel format unless the consumer prefers another.
    virtual Video CreateResizer(const Video& source, const Proc::SettingsResizer& settings) = 0;
    /// A constant frame rate: frame n shows what the source shows at the middle of its period; frame count =
    /// round(duration x rate). Repeated frames share their pixels.
    virtual Video CreateFrameRate(const Video& source, const Proc::SettingsFilterFrameRate& settings) = 0;
    /// Passes pictures as they are; gives each a duration that reaches to the next one.
    virtual Video CreateFrameRate(const Video& source) = 0;
    /// Reads `source` on a thread of its own, up to `frames` ahead.
    virtual Video CreateReadAhead(const Video& source, int frames) = 0;
    /// Streams one after the other.
    virtual boost::intrusive_ptr<Proc::IConcatenation> CreateConcatenation() = 0;
    /// Another sample format, rate or channel layout; sample-exact: round(duration x rate) samples in all. What the
    /// target leaves open stays.
    virtual Audio CreateResampler(const Audio& source, const Conf::SampleInfo& target) = 0;
    virtual Audio CreateDurationTrimmer(const Audio& source, const Proc::SettingsFilterDurationTrimmer& settings) = 0;
    virtual Audio CreateReadAhead(const Audio& source, int blocks) = 0;
    /// `duration` of black in the format's frame, rate and colour.
    virtual Video CreateBlack(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format, std::int64_t duration) = 0;
    virtual Audio CreateSilence(const boost::intrusive_ptr<Conf::IFormatCodecAudio>& format, std::int64_t duration) = 0;
};

} // namespace Kestra::Core
