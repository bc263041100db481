// Kestra::Proc::FrameRate: brings pictures to a constant rate.
#pragma once

#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include <boost/rational.hpp>

namespace Kestra::Proc {

/// Frame n shows what the source shows at the middle of its period: clocks that round to a millisecond then neither
/// drop nor repeat a frame. When the source ends early, its last picture stays up to the end of its duration.
class FrameRate final : public VideoFilterBase {
public:
    /// Throws std::invalid_argument for a null source or a rate that is not positive.
    FrameRate(const boost::intrusive_ptr<IStreamVideo>& source, const boost::rational<long long>& rate);

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, SeekMode mode) override;
    void Reset() override;

private:
    std::int64_t CountFrames() const;
    std::int64_t MiddleOf(std::int64_t index) const;
    void PullUpTo(std::int64_t time);

    const boost::rational<long long> rate;
    std::int64_t index = 0;                 ///< of the frame that the next read gives
    boost::intrusive_ptr<IDataVideo> shown; ///< the source's picture at the last middle
    bool ended = false;                     ///< the source has no more pictures
};

} // namespace Kestra::Proc
