#include "Kestra/FF/FilterFactory.h"

#include "Kestra/FF/Black.h"
#include "Kestra/FF/ResamplerFF.h"
#include "Kestra/FF/Resizer.h"
#include "Kestra/Proc/Filters/Concatenation.h"
#include "Kestra/Proc/Filters/FrameDurations.h"
#include "Kestra/Proc/Filters/FrameRate.h"
#include "Kestra/Proc/Filters/ReadAheadAudio.h"
#include "Kestra/Proc/Filters/ReadAheadVideo.h"

namespace Kestra::FF {

FilterFactory::Video FilterFactory::CreateResizer(const Video& source, const Proc::SettingsResizer& settings) {
    return MakeResizer(source, settings);
}

FilterFactory::Video FilterFactory::CreateFrameRate(const Video& source,
                                                    const Proc::SettingsFilterFrameRate& settings) {
    if (settings.GetFrameRate() == Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE)
        return CreateFrameRate(source);
    return new Proc::FrameRate(source, settings.GetFrameRate());
}

FilterFactory::Video FilterFactory::CreateFrameRate(const Video& source) {
    return new Proc::FrameDurations(source);
}

FilterFactory::Video FilterFactory::CreateReadAhead(const Video& source, int frames) {
    return new Proc::ReadAheadVideo(source, frames);
}

boost::intrusive_ptr<Proc::IConcatenation> FilterFactory::CreateConcatenation() {
    return new Proc::Concatenation;
}

FilterFactory::Audio FilterFactory::CreateResampler(const Audio& source, const Conf::SampleInfo& target) {
    return MakeResampler(source, target);
}

FilterFactory::Audio FilterFactory::CreateDurationTrimmer(const Audio& source,
                                                          const Proc::SettingsFilterDurationTrimmer& settings) {
    return MakeDurationTrimmer(source, settings.GetDuration());
}

FilterFactory::Audio FilterFactory::CreateReadAhead(const Audio& source, int blocks) {
    return new Proc::ReadAheadAudio(source, blocks);
}

FilterFactory::Video FilterFactory::CreateBlack(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format,
                                                std::int64_t duration) {
    return MakeBlack(format, duration);
}

FilterFactory::Audio FilterFactory::CreateSilence(const boost::intrusive_ptr<Conf::IFormatCodecAudio>& format,
                                                  std::int64_t duration) {
    return MakeSilence(format, duration);
}

std::shared_ptr<Core::IFilterFactory> MakeFilterFactory() {
    return std::make_shared<FilterFactory>();
}

} // namespace Kestra::FF
