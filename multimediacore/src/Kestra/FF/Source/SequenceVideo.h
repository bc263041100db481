// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SequenceVideo: the pictures of an image sequence, one after the other.
#pragma once

#include "Kestra/Base/FrameGrid.h"
#include "Kestra/FF/Picture/FrameConverter.h"
#include "Kestra/FF/Source/SequenceSource.h"
#include "Kestra/FF/Source/StillReader.h"
#include "Kestra/Proc/Filters/StreamBase.h"
#include <atomic>

namespace Kestra::FF {

/// Each read opens the file of its picture and no other; what stands for several missing ones is read once.
class SequenceVideo final : public Proc::StreamBase<Proc::IStreamVideo> {
public:
    explicit SequenceVideo(boost::intrusive_ptr<SequenceSource> source);

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    std::int64_t GetDuration() const override { return grid.Length(count).Value(); }
    std::int64_t GetPosition() const override { return grid.Begin(index).Value(); }
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override { interrupted = true; }
    std::string Describe() const override { return source->GetPath().ToUtf8(); }
    /// Notes with the source what the consumer will change in its colour.
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Reset() override;

    /// The name of the pixel format that pictures come in whose first one is in the format of that name: palettes and
    /// bits, which only some pictures can be brought to, become what holds them all.
    static std::string FormatFor(const std::string& first);

private:
    boost::intrusive_ptr<Proc::IDataVideo> ReadOn();
    FrameHandle Picture(std::int64_t number);
    FrameHandle Substitute(std::int64_t number);
    /// Null where it is missing or unreadable and something else may stand for it.
    FrameHandle TryRead(std::int64_t number);
    FrameHandle Read(std::int64_t number);
    FrameHandle Conform(const FrameHandle& frame, std::int64_t number);
    FrameHandle Black();
    void Report(std::int64_t number, const std::string& what);

    const boost::intrusive_ptr<SequenceSource> source;
    /// Never read: it knows what there is to say of the first picture.
    const boost::intrusive_ptr<Proc::IStreamVideo> told;
    const AVPixelFormat format;
    const FrameGrid grid;
    const FrameIndex count;
    FrameIndex index;
    std::atomic<bool> interrupted{false};
    StillReader reader;
    FrameConverter converter;
    FrameHandle black; ///< once it was needed
    FrameHandle held;  ///< read last
    std::int64_t heldNumber = -1;
};

} // namespace Kestra::FF
