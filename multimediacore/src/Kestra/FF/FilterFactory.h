#pragma once

#include "Kestra/Core/IFilterFactory.h"
#include <memory>

namespace Kestra::FF {

class FilterFactory final : public Core::IFilterFactory {
public:
    Video CreateResizer(const Video& source, const Proc::SettingsResizer& settings) override;
    Video CreateFrameRate(const Video& source, const Proc::SettingsFilterFrameRate& settings) override;
    Video CreateFrameRate(const Video& source) override;
    Video CreateReadAhead(const Video& source, int frames) override;
    boost::intrusive_ptr<Proc::IConcatenation> CreateConcatenation() override;
    Audio CreateResampler(const Audio& source, const Conf::SampleInfo& target) override;
    Audio CreateDurationTrimmer(const Audio& source, const Proc::SettingsFilterDurationTrimmer& settings) override;
    Audio CreateReadAhead(const Audio& source, int blocks) override;
    Video CreateBlack(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format, std::int64_t duration) override;
    Audio CreateSilence(const boost::intrusive_ptr<Conf::IFormatCodecAudio>& format, std::int64_t duration) override;
};

std::shared_ptr<Core::IFilterFactory> MakeFilterFactory();

} // namespace Kestra::FF
