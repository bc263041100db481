// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IStream: what every stream of the engine can do. Streams are pulled.
#pragma once

#include "Kestra/Conf/IFormatCodec.h"
#include "Kestra/Core/Property.h"
#include "Kestra/Proc/IData.h"
#include <string>

namespace Kestra::Proc {

/// How exactly a seek lands.
enum class SeekMode : int {
    Exact = 0,    ///< the next read returns the piece that covers the time
    Keyframe = 1, ///< the next read may return the nearest earlier keyframe
};

/// One consumer at a time: all operations but Interrupt are called on one thread at a time, which may change between
/// calls. Time is engine time from the start of the stream, which is 0. Errors are thrown as ProcException; there is no
/// silent gap. The order of the operations is part of the binary interface.
class KESTRA_EXPORT IStream : public virtual IRefCountable {
public:
    ~IStream() override;

    /// Gives a stream its settings. Possible until the first read; throws where a stream has none.
    virtual void Initialize(const Core::Property& settings) = 0;
    virtual Core::Property GetSettings() const = 0;
    /// Whole length in engine time; TIME_UNKNOWN when only reading can tell.
    virtual std::int64_t GetDuration() const = 0;
    /// Where the next read begins.
    virtual std::int64_t GetPosition() const = 0;
    /// The next piece, null at the end and on every read after it, and for no other reason.
    virtual boost::intrusive_ptr<IData> ReadData() = 0;
    /// Moves to `time`, clamped to the stream.
    virtual void Seek(std::int64_t time, SeekMode mode) = 0;
    /// Until Reset: a read that waits, or would, throws Interrupted. What is at hand may still come. Thread-safe.
    virtual void Interrupt() = 0;
    virtual bool IsSeekable() const = 0;
    /// The format of what is read. The object is new and the caller's.
    virtual void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const = 0;
    /// Where the data comes from, for messages: a path, or the filter's name with its source's.
    virtual std::string Describe() const = 0;
    /// A consumer's wish, passed upstream before the first read: it will convert to `format`, so a stream that converts
    /// anyway should deliver that (pixel format, colour, sample format). Never an obligation.
    virtual void PreferFormat(const Conf::IFormatCodec& format) = 0;
    /// Opens what the first read needs (files, codecs), so that GetFormatCodec is complete. Called on the reading
    /// thread.
    virtual void Prepare() = 0;
    /// Back to the start, fresh: what an earlier reader left behind, an Interrupt included, is gone.
    virtual void Reset() = 0;
};

} // namespace Kestra::Proc
