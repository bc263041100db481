// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SourceFile: a media file as libav gets it, itself and nothing else.
#pragma once

#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Base/ioPath.h"
#include "Kestra/FF/Av/Handles.h"
#include "Kestra/Proc/MediaLimits.h"
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace Kestra::FF {

class LogWatch;

/// The one place where input files are opened. Whatever a file names besides itself stays closed, whichever part of
/// libav asks for it, and a file of a kind that is not known to hold its media itself is not read beyond the beginning
/// that tells its kind.
class SourceFile {
public:
    /// `interrupted` is borrowed for life and polled by every read.
    SourceFile(ioPath path, const std::atomic<bool>& interrupted, const Proc::MediaLimits& limits,
               std::function<void()> onPassedOver);
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;

    /// Whether the reader of the format looks at every byte where it does not find what it searches, which is slow.
    static bool IsSearchedByteByByte(const char* format);

    /// The file's context with its header read; the one of the call before must be gone. Throws ProcException:
    /// SourceNotFound, SourceUnreadable, OutOfMemory.
    InputContextHandle Open();

    /// Takes the file to end at that byte when it is opened the next time.
    void SetEnd(std::int64_t byte) { end = byte; }
    /// Has a film's samples told by their own times when it is opened the next time, whatever its edit lists say.
    void IgnoreEdits() { edited = false; }
    /// From here on that many bytes are read and then no more, as if the reading had been interrupted. A search that
    /// finds nothing so has an end, and what it collects on its way a bound.
    void Allow(std::int64_t bytes);
    /// The same for the search for a packet of a track among others': `onPassedOver`, within a read, when so many bytes
    /// as are seldom passed over have been, and `bytes` from there on.
    void AllowPassing(std::int64_t bytes);
    /// Whether what was allowed has been used up.
    bool IsUsedUp() const { return io && io->bytes_read >= allowedUntil; }

private:
    void OpenIo();
    const AVInputFormat& FindFormat();
    InputContextHandle ReadHeader(const AVInputFormat& format);
    [[noreturn]] void FailOpening(int error, const LogWatch& log, SourcePlace place = SourcePlace::Here()) const;
    [[noreturn]] void Refuse(const std::string& reason, SourcePlace place = SourcePlace::Here()) const;
    bool Poll();
    static int OnPoll(void* self);
    static int OnOpen(AVFormatContext* context, AVIOContext** io, const char* url, int flags, AVDictionary** options);

    struct IoCloser {
        void operator()(AVIOContext* context) const noexcept { avio_closep(&context); }
    };

    ioPath path;
    std::string url;
    const std::atomic<bool>& interrupted;
    Proc::MediaLimits limits;
    std::function<void()> onPassedOver;
    std::unique_ptr<AVIOContext, IoCloser> io;
    std::int64_t end = 0;                  ///< a byte; 0: all of the file
    bool edited = true;                    ///< as edit lists say
    std::int64_t allowedUntil = INT64_MAX; ///< of the bytes that `io` has read
    std::int64_t passingUntil = INT64_MAX; ///< likewise
    bool namesOthers = false;              ///< something asked for another file
};

} // namespace Kestra::FF
