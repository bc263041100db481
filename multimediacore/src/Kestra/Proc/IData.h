// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IData and its kinds: one frame, one block of samples or one packet on its way through the engine.
#pragma once

#include "Kestra/Base/IRefCountable.h"
#include <cstddef>

namespace Kestra::Proc {

/// A piece of media with its place in its stream. Times are engine time, from the start of the stream.
/// Pixels, samples and bytes are shared between copies and not to be written; the times belong to this object alone.
class KESTRA_EXPORT IData : public virtual IRefCountable {
public:
    ~IData() override;
    virtual std::int64_t GetTime() const = 0;
    virtual void SetTime(std::int64_t time) = 0;
    virtual std::int64_t GetDuration() const = 0;
    virtual void SetDuration(std::int64_t duration) = 0;
    /// Bytes of memory that it keeps alive, for bounding queues.
    virtual std::size_t GetByteSize() const = 0;
};

} // namespace Kestra::Proc
