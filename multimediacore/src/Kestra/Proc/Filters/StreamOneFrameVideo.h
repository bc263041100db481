// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::StreamOneFrameVideo: one picture as a stream.
#pragma once

#include "Kestra/Proc/Filters/StreamBase.h"

namespace Kestra::Proc {

/// Gives its picture once, with the times that it was made with, and then null. It has no frame rate of its own, and a
/// seek to whatever time rewinds it: there is one picture for every time.
class KESTRA_EXPORT StreamOneFrameVideo final : public StreamBase<IStreamVideo> {
public:
    /// Throws std::invalid_argument for null.
    static boost::intrusive_ptr<StreamOneFrameVideo> Create(const boost::intrusive_ptr<IDataVideo>& frame);

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    std::int64_t GetDuration() const override { return frame->GetDuration(); }
    std::int64_t GetPosition() const override { return read ? frame->GetDuration() : 0; }
    void Seek(std::int64_t time, SeekMode mode) override;
    void Interrupt() override {}
    std::string Describe() const override { return "one picture"; }
    void Reset() override;

private:
    explicit StreamOneFrameVideo(boost::intrusive_ptr<IDataVideo> frame);

    const boost::intrusive_ptr<IDataVideo> frame;
    bool read = false;
};

} // namespace Kestra::Proc
