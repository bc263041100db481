// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::OutputIo: a muxer library's writes onto a data output.
#pragma once

#include "Kestra/Core/IDataOutput.h"
#include "Kestra/FF/Av/Handles.h"
#include <exception>

namespace Kestra::FF {

/// The first exception of the output is kept until Rethrow; the library meanwhile sees a failure of the same kind.
class OutputIo {
public:
    explicit OutputIo(const boost::intrusive_ptr<Core::IDataOutput>& output);
    OutputIo(const OutputIo&) = delete;
    OutputIo& operator=(const OutputIo&) = delete;

    AVIOContext* Get() const { return context.get(); }
    /// Throws what the output has thrown.
    void Rethrow() const;
    /// Lets `format` read the output back by its path, which is how an index moves to the front of a file.
    void AllowReadingBack(AVFormatContext& format);
    /// Whether the output's path names a file that can be read.
    bool CanBeReadBack() const;

private:
    static int WriteBytes(void* opaque, std::uint8_t* bytes, int size);
    static std::int64_t SeekTo(void* opaque, std::int64_t offset, int whence);
    static int OpenForReading(AVFormatContext* format, AVIOContext** io, const char* url, int flags,
                              AVDictionary** options);
    static int CloseReading(AVFormatContext* format, AVIOContext* io);

    const boost::intrusive_ptr<Core::IDataOutput> output;
    IoContextHandle context;
    std::exception_ptr failure;
};

} // namespace Kestra::FF
