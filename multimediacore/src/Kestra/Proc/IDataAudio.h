// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/IData.h"

namespace Kestra::Proc {

/// A block of samples of one format, rate and layout.
class KESTRA_EXPORT IDataAudio : public IData {
public:
    ~IDataAudio() override;
    /// Samples a channel.
    virtual std::int64_t GetSampleCount() const = 0;
    virtual int GetSampleRate() const = 0;
    /// A new object on the samples [offset, offset + count) of this one, sharing memory; its time and duration follow.
    virtual boost::intrusive_ptr<IDataAudio> Slice(std::int64_t offset, std::int64_t count) const = 0;
};

} // namespace Kestra::Proc
