// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::FrameDurations: lets each picture last until the next one.
#pragma once

#include "Kestra/Proc/Filters/VideoFilterBase.h"

namespace Kestra::Proc {

/// Passes pictures as they are but for their durations; the last one lasts to the stream's end. Reads one picture
/// ahead.
class FrameDurations final : public VideoFilterBase {
public:
    explicit FrameDurations(const boost::intrusive_ptr<IStreamVideo>& source);

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, SeekMode mode) override;
    void Reset() override;

private:
    boost::intrusive_ptr<IDataVideo> ahead;
};

} // namespace Kestra::Proc
