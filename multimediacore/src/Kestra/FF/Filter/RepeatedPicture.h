// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::RepeatedPicture: one picture that is made, for as long as it is wanted.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/Filters/StreamBase.h"

namespace Kestra::FF {

/// The picture comes once a period of the format's rate and shares its pixels; without a rate it is one frame. It is
/// drawn at the first read.
class RepeatedPicture : public Proc::StreamBase<Proc::IStreamVideo> {
public:
    RepeatedPicture(const Conf::IFormatCodecVideo& format, std::int64_t duration);

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& result) const override;
    std::int64_t GetDuration() const override { return duration; }
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override {}
    void Reset() override { index = 0; }

protected:
    /// As the format says, which is complete but for what the stream's maker left open.
    virtual FrameHandle Draw() const = 0;
    const Conf::IFormatCodecVideo& Format() const { return *format; }
    /// Draws anew at the next read.
    void ChangeFormat(Conf::PixelFormat pixelFormat, const Conf::ColourInfo& colour);

private:
    std::int64_t Count() const;
    std::int64_t TimeOf(std::int64_t frame) const;

    const boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    const std::int64_t duration;
    std::int64_t index = 0;
    FrameHandle picture;
};

} // namespace Kestra::FF
