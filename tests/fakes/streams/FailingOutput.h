// SPDX-License-Identifier: GPL-3.0-or-later
// Fakes::FailingOutput: a file on a disk that is full, or that fails in its own way.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Core/IDataOutput.h"
#include <exception>

namespace Fakes {

/// Writes to `path` until a write would pass `room` bytes in all, counted over every write; or fails where it is told.
class FailingOutput final : public Kestra::Core::IDataOutput, public Kestra::RefCountImpl {
public:
    explicit FailingOutput(const Kestra::ioPath& path);

    std::int64_t room = INT64_MAX;
    bool failOpen = false;
    bool failClose = false;

    void Open() override;
    void Write(const void* bytes, std::size_t size) override;
    void Seek(std::int64_t offset) override { real->Seek(offset); }
    std::int64_t GetPosition() const override { return real->GetPosition(); }
    std::int64_t GetSize() const override { return real->GetSize(); }
    void Close() override;
    void Abort() noexcept override { real->Abort(); }
    const Kestra::ioPath& GetPath() const override { return real->GetPath(); }

    std::int64_t GetBytesWritten() const { return written; }

private:
    [[noreturn]] void Fail();

    const boost::intrusive_ptr<Kestra::Core::IDataOutput> real;
    std::int64_t written = 0;
    std::exception_ptr failure;
};

} // namespace Fakes
