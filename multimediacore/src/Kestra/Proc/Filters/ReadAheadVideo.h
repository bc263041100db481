// Kestra::Proc::ReadAheadVideo: reads its source on a thread of its own, ahead of the consumer.
#pragma once

#include "Kestra/Proc/Filters/ReadAheadQueue.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"

namespace Kestra::Proc {

/// The thread starts with the first read. What the source throws is thrown by the read that would have returned the
/// missing picture. Seek waits for the read that is under way; Reset, Interrupt and the destructor interrupt it.
class KESTRA_EXPORT ReadAheadVideo final : public VideoFilterBase {
public:
    ReadAheadVideo(const boost::intrusive_ptr<IStreamVideo>& source, int pictures);
    ~ReadAheadVideo() override;

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, SeekMode mode) override;
    void Interrupt() override;
    void Prepare() override;
    void Reset() override;

private:
    void Start();

    ReadAheadQueue queue;
    /// Once the thread runs, the source is its own; these are what it said before.
    boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
    std::int64_t duration = 0;
    std::int64_t position = 0;
};

} // namespace Kestra::Proc
