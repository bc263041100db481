// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::DataAudioFF: a block of samples over a counted AVFrame.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/IDataAudio.h"

namespace Kestra::FF {

class DataAudioFF final : public Proc::IDataAudio, public RefCountImpl {
public:
    /// Takes the frame (its format, rate, layout and sample count are set; its pts is not read). The duration follows.
    DataAudioFF(FrameHandle samples, std::int64_t time);

    std::int64_t GetTime() const override { return time; }
    void SetTime(std::int64_t value) override { time = value; }
    std::int64_t GetDuration() const override { return duration; }
    void SetDuration(std::int64_t value) override { duration = value; }
    std::size_t GetByteSize() const override;
    std::int64_t GetSampleCount() const override { return frame->nb_samples; }
    int GetSampleRate() const override { return frame->sample_rate; }
    boost::intrusive_ptr<Proc::IDataAudio> Slice(std::int64_t offset, std::int64_t count) const override;

    const AVFrame& GetFrame() const { return *frame; }

private:
    FrameHandle frame;
    std::int64_t time;
    std::int64_t duration;
};

/// The frame behind a block of this engine; throws std::invalid_argument for one of another making.
const AVFrame& FrameOf(const Proc::IDataAudio& data);

} // namespace Kestra::FF
