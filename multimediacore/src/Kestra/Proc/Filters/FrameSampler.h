// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::FrameSampler: brings pictures to a constant rate.
#pragma once

#include "Kestra/Proc/Filters/SamplingRule.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include <memory>
#include <optional>

namespace Kestra::Proc {

class BackwardFrames;

/// The frames of a grid, from `first` on, which stands at time 0 of this stream. Before the source's first frame that
/// one is shown, after its last frame the last one. What is not shown is passed over, what is shown repeatedly shares
/// its pixels. Begins to read at the first frame shown, and reads no frame before it is needed. A rule that
/// runs backwards is obeyed by reading stretches of the source, each before the last one, whose pictures are held.
/// Thread rules of IStream.
class KESTRA_EXPORT FrameSampler final : public VideoFilterBase {
public:
    enum class Repeats {
        EachOnItsOwn, ///< every frame lasts one period
        /// A frame comes once and lasts for all its periods, so later filters do no work twice; only the source's last
        /// one comes a second time, for what lies behind its end.
        AsOne,
    };
    struct Plan {
        SamplingRule rule;
        Repeats repeats = Repeats::EachOnItsOwn;
        FrameIndex first{};
        /// Unset: as many as the source's duration holds, and where that is unknown until its last frame ends; the
        /// rule's map is then that of every time to itself and `first` is 0.
        std::optional<FrameIndex> count{};
        /// Bytes of pictures that are held where the rule runs backwards.
        std::size_t mostHeld = std::size_t{128} << 20;
    };

    /// Throws std::invalid_argument for a null source, and for a rule that runs backwards without a number of frames.
    FrameSampler(const boost::intrusive_ptr<IStreamVideo>& source, const Plan& plan);
    ~FrameSampler() override;

    /// Throws ProcException (SourceUnreadable) when a number of frames is ordered and the source has none.
    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    /// To the frame that covers `time`, whatever the mode; the source is moved by the next read.
    void Seek(std::int64_t time, SeekMode mode) override;
    void Reset() override;

private:
    std::optional<FrameIndex> Count() const;
    void Start(FrameIndex index);
    void ReadFrom(Ticks place);
    void Supply(FrameIndex index);
    FrameIndex AfterCurrent() const;
    FrameIndex RunLength(FrameIndex index) const;
    boost::intrusive_ptr<IDataVideo> ReadBackwards(FrameIndex index);
    [[noreturn]] void FailWithoutFrames() const;
    boost::intrusive_ptr<IDataVideo> Give(FrameIndex run);
    void Forget();

    const Plan plan;
    const std::unique_ptr<BackwardFrames> backwards; ///< null where the rule runs forwards
    FrameIndex produced;
    bool moved = false;                       ///< the source does not stand at its start
    bool ended = false;                       ///< the source has no more frames
    boost::intrusive_ptr<IDataVideo> current; ///< unless null, what the last read gave
    FrameIndex currentIndex;                  ///< of the grid, that shows it first
    boost::intrusive_ptr<IDataVideo> next;    ///< read, but shown later only
    FrameIndex nextIndex;
};

} // namespace Kestra::Proc
