// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Core/DataOutputFF.h"

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/Failure.h"
#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace Kestra::Core {

using Proc::TranscodingError;

namespace {

constexpr std::size_t BUFFER_SIZE = std::size_t{1} << 20;

/// Bytes gather in a buffer until a megabyte is full or the position moves.
class FileOutput final : public IDataOutput, public RefCountImpl {
public:
    explicit FileOutput(const ioPath& path)
        : path(path) {}
    ~FileOutput() override { CloseQuietly(); }

    void Open() override;
    void Write(const void* bytes, std::size_t size) override;
    void Seek(std::int64_t offset) override;
    std::int64_t GetPosition() const override { return offset + static_cast<std::int64_t>(buffer.size()); }
    std::int64_t GetSize() const override { return std::max(size, GetPosition()); }
    void Close() override;
    void Abort() noexcept override { CloseQuietly(); }
    const ioPath& GetPath() const override { return path; }

private:
    void Flush();
    void WriteAll(const std::uint8_t* bytes, std::size_t count);
    void RequireOpen(SourcePlace place = SourcePlace::Here()) const;
    void CloseQuietly() noexcept;
    [[noreturn]] void Throw(int error, const char* what, SourcePlace place = SourcePlace::Here());

    const ioPath path;
    int file = -1;
    std::vector<std::uint8_t> buffer;
    std::int64_t offset = 0; ///< where the buffer begins
    std::int64_t size = 0;
    std::exception_ptr failure;
};

void FileOutput::Throw(int error, const char* what, SourcePlace place) {
    try {
        Proc::FailAsSystem(error, TranscodingError::OutputFailed, "The output file \"" + path.ToUtf8() + "\" " + what,
                           place);
    } catch (...) {
        if (!failure)
            failure = std::current_exception();
        throw;
    }
}

void FileOutput::RequireOpen(SourcePlace place) const {
    if (file < 0)
        Proc::Fail(TranscodingError::OutputFailed, "The output file \"" + path.ToUtf8() + "\" is not open", place);
}

void FileOutput::Open() {
    CloseQuietly();
    failure = nullptr;
    // A pipe without a reader is then refused at once; it would otherwise be waited for. For files it means nothing.
    file = ::open(path.ToUtf8().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666);
    if (file < 0)
        Throw(errno, "cannot be created");
    buffer.reserve(BUFFER_SIZE);
    offset = 0;
    size = 0;
}

void FileOutput::WriteAll(const std::uint8_t* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t written = ::pwrite(file, bytes, count, offset);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            Throw(written < 0 ? errno : ENOSPC, "cannot be written");
        bytes += written;
        count -= static_cast<std::size_t>(written);
        offset += written;
        size = std::max(size, offset);
    }
}

void FileOutput::Flush() {
    const std::size_t count = buffer.size();
    if (count == 0)
        return;
    // Emptied first: bytes that could not be written are not tried again at each later step.
    std::vector<std::uint8_t> pending;
    pending.swap(buffer);
    WriteAll(pending.data(), count);
    pending.clear();
    buffer.swap(pending);
}

void FileOutput::Write(const void* bytes, std::size_t count) {
    RequireOpen();
    if (failure)
        std::rethrow_exception(failure);
    const auto* from = static_cast<const std::uint8_t*>(bytes);
    if (buffer.size() + count > BUFFER_SIZE)
        Flush();
    if (count >= BUFFER_SIZE)
        WriteAll(from, count);
    else
        buffer.insert(buffer.end(), from, from + count);
}

void FileOutput::Seek(std::int64_t position) {
    RequireOpen();
    Flush();
    if (position < 0)
        Throw(EINVAL, "cannot be positioned");
    offset = position;
}

void FileOutput::Close() {
    if (file >= 0) {
        if (!failure)
            Flush();
        const int descriptor = file;
        file = -1;
        // Also after EINTR the descriptor is gone; the data is with the system by then.
        if (::close(descriptor) != 0 && errno != EINTR)
            Throw(errno, "cannot be closed");
    }
    if (failure)
        std::rethrow_exception(failure);
}

void FileOutput::CloseQuietly() noexcept {
    if (file >= 0)
        ::close(file);
    file = -1;
    buffer.clear();
}

} // namespace

boost::intrusive_ptr<IDataOutput> DataOutputFF::Create(const ioPath& path) {
    return new FileOutput(path);
}

} // namespace Kestra::Core
