// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Mux/OutputIo.h"

#include <cerrno>
#include <string>
#include <unistd.h>

namespace Kestra::FF {

namespace {

constexpr int BUFFER_SIZE = 256 * 1024;

std::string UrlOf(const ioPath& path) {
    return "file:" + path.ToUtf8();
}

} // namespace

OutputIo::OutputIo(const boost::intrusive_ptr<Core::IDataOutput>& output)
    : output(output) {
    auto* buffer = static_cast<unsigned char*>(Allocated(av_malloc(BUFFER_SIZE)));
    context.reset(avio_alloc_context(buffer, BUFFER_SIZE, 1, this, nullptr, &OutputIo::WriteBytes, &OutputIo::SeekTo));
    if (!context) {
        av_free(buffer);
        throw std::bad_alloc();
    }
}

// No exception may pass through the library's C frames.
int OutputIo::WriteBytes(void* opaque, std::uint8_t* bytes, int size) {
    auto& self = *static_cast<OutputIo*>(opaque);
    if (self.failure)
        return AVERROR(EIO);
    try {
        self.output->Write(bytes, static_cast<std::size_t>(size));
        return size;
    } catch (...) {
        self.failure = std::current_exception();
        return AVERROR(EIO);
    }
}

std::int64_t OutputIo::SeekTo(void* opaque, std::int64_t offset, int whence) {
    auto& self = *static_cast<OutputIo*>(opaque);
    if (self.failure)
        return AVERROR(EIO);
    try {
        if (whence == AVSEEK_SIZE)
            return self.output->GetSize();
        const int origin = whence & ~AVSEEK_FORCE;
        if (origin == SEEK_CUR)
            offset += self.output->GetPosition();
        else if (origin == SEEK_END)
            offset += self.output->GetSize();
        self.output->Seek(offset);
        return offset;
    } catch (...) {
        self.failure = std::current_exception();
        return AVERROR(EIO);
    }
}

void OutputIo::Rethrow() const {
    if (failure)
        std::rethrow_exception(failure);
}

bool OutputIo::CanBeReadBack() const {
    return !output->GetPath().IsEmpty() && ::access(output->GetPath().ToUtf8().c_str(), R_OK) == 0;
}

void OutputIo::AllowReadingBack(AVFormatContext& format) {
    format.opaque = this;
    format.io_open = &OutputIo::OpenForReading;
    format.io_close2 = &OutputIo::CloseReading;
}

int OutputIo::OpenForReading(AVFormatContext* format, AVIOContext** io, const char*, int flags, AVDictionary**) {
    if (flags & AVIO_FLAG_WRITE)
        return AVERROR(EPERM);
    const auto& self = *static_cast<const OutputIo*>(format->opaque);
    return avio_open(io, UrlOf(self.output->GetPath()).c_str(), AVIO_FLAG_READ);
}

int OutputIo::CloseReading(AVFormatContext*, AVIOContext* io) {
    return avio_close(io);
}

} // namespace Kestra::FF
