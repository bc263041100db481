// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SilenceFF: a stream of silence.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/Filters/StreamBase.h"

namespace Kestra::FF {

/// All its blocks share one buffer.
class SilenceFF final : public Proc::StreamBase<Proc::IStreamAudio> {
public:
    SilenceFF(const Conf::IFormatCodecAudio& format, std::int64_t duration);

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override;
    std::int64_t GetDuration() const override { return duration; }
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override {}
    std::string Describe() const override { return "silence"; }
    void Reset() override { position = 0; }

private:
    const std::int64_t duration;
    FrameHandle block;
    std::int64_t total = 0;
    std::int64_t position = 0; ///< samples
};

} // namespace Kestra::FF
