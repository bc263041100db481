// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Core::IDataOutput: where a muxer's bytes go.
#pragma once

#include "Kestra/Base/IRefCountable.h"
#include "Kestra/Base/ioPath.h"
#include <cstddef>

namespace Kestra::Core {

/// Used by one thread at a time. Every failure throws ProcException with its cause (disk full, not writable ...), and
/// each one after the first is thrown again by Close.
class KESTRA_EXPORT IDataOutput : public virtual IRefCountable {
public:
    ~IDataOutput() override;
    /// Creates or empties the target.
    virtual void Open() = 0;
    virtual void Write(const void* bytes, std::size_t size) = 0;
    /// Absolute position; the end for reading back is not offered.
    virtual void Seek(std::int64_t offset) = 0;
    virtual std::int64_t GetPosition() const = 0;
    /// Size so far.
    virtual std::int64_t GetSize() const = 0;
    /// Flushes and closes, checking both. A second call does nothing.
    virtual void Close() = 0;
    /// Closes without caring.
    virtual void Abort() noexcept = 0;
    virtual const ioPath& GetPath() const = 0;
};

} // namespace Kestra::Core
