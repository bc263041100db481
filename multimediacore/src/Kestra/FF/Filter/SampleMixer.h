// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SampleMixer: the sound of several streams as one.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/ISampleMixer.h"

namespace Kestra::FF {

class SampleMixer final : public Proc::ISampleMixer, public RefCountImpl {
public:
    /// As IFilterFactory::CreateSampleMixer says.
    explicit SampleMixer(const Conf::SampleInfo& format);

    boost::intrusive_ptr<Proc::IDataAudio> Mix(const std::vector<Proc::MixVoice>& voices, SampleIndex count) override;
    double Peak() const override { return peak; }

private:
    const AVFrame& Taken(const Proc::MixVoice& voice, SampleIndex count) const;
    template <class Sample>
    FrameHandle Sum(const std::vector<Proc::MixVoice>& voices, SampleIndex count);
    template <class Sample>
    void Measure(const AVFrame& block);

    AVSampleFormat format;
    int rate;
    AVChannelLayout layout;
    std::vector<double> gains; ///< of one voice, a sample each
    double peak = 0;
};

} // namespace Kestra::FF
