// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::DataVideoFF: a frame over a counted AVFrame.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/IDataVideo.h"

namespace Kestra::FF {

class DataVideoFF final : public Proc::IDataVideo, public RefCountImpl {
public:
    /// Takes the frame; its pts is not read, the times count.
    DataVideoFF(FrameHandle frame, std::int64_t time, std::int64_t duration);

    std::int64_t GetTime() const override { return time; }
    void SetTime(std::int64_t value) override { time = value; }
    std::int64_t GetDuration() const override { return duration; }
    void SetDuration(std::int64_t value) override { duration = value; }
    std::size_t GetByteSize() const override;
    Conf::FrameInfo GetFrameInfo() const override;
    Conf::PixelFormat GetPixelFormat() const override;
    boost::intrusive_ptr<Proc::IDataVideo> Share() const override;

    const AVFrame& GetFrame() const { return *frame; }

private:
    FrameHandle frame;
    std::int64_t time;
    std::int64_t duration;
};

/// The frame behind a picture of this engine; throws std::invalid_argument for one of another making.
const AVFrame& FrameOf(const Proc::IDataVideo& data);

} // namespace Kestra::FF
