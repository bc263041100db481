// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::FrameStretch: one frame of a stream, shown for a whole duration.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IStreamVideo.h"

namespace Kestra::Proc {

/// Presents a stream of exactly `duration` that is made of the next frame of `source`, stamped at the current position
/// and lasting until the end. After a seek the one frame covers what is left. Thread rules of IStream.
class FrameStretch final : public IStreamVideo, public RefCountImpl {
public:
    /// `duration` is engine time. Throws std::invalid_argument for a null source or a duration below 1.
    FrameStretch(const boost::intrusive_ptr<IStreamVideo>& source, std::int64_t duration);

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;

    /// There are no settings: both throw FilterException.
    void Initialize(const Core::Property& settings) override;
    Core::Property GetSettings() const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    boost::intrusive_ptr<IData> ReadData() override;
    /// The source is rewound to its start whatever the time is: its one frame serves every position.
    void Seek(std::int64_t time, SeekMode mode) override;
    void Interrupt() override;
    bool IsSeekable() const override;
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override;
    std::string Describe() const override;
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Prepare() override;
    void Reset() override;

private:
    std::int64_t position = 0;
    std::int64_t duration;
    boost::intrusive_ptr<IStreamVideo> source;
};

/// The filter as the module uses it.
boost::intrusive_ptr<IStreamVideo> CreateFrameStretch(const boost::intrusive_ptr<IStreamVideo>& source,
                                                      std::int64_t duration);

} // namespace Kestra::Proc
