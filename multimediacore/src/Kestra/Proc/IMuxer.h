// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IMuxer: interleaves packets into a container and writes it.
#pragma once

#include "Kestra/Conf/IFormatCodec.h"
#include "Kestra/Proc/IDataRaw.h"

namespace Kestra::Proc {

/// Made by Proc::IMuxerFactory from a format description and a data output, which it holds.
/// Used by one thread at a time, in the order AddStream*, Open, Write*, then Finish or Abort. Nothing is created on
/// disk before Open. Every failure throws ProcException; after one only Abort may be called.
class KESTRA_EXPORT IMuxer : public virtual IRefCountable {
public:
    ~IMuxer() override;

    /// Adds a track for packets of `format` (as a prepared packet source gives it); returns its index, from 0.
    virtual int AddStream(const boost::intrusive_ptr<Conf::IFormatCodec>& format) = 0;
    /// Creates the output and writes the header.
    virtual void Open() = 0;
    /// Takes the next packet of a track, in that track's decode order; interleaving is the muxer's.
    virtual void Write(int index, const boost::intrusive_ptr<IDataRaw>& packet) = 0;
    /// Writes what is buffered and the trailer, flushes and closes; checks each. No more than once.
    virtual void Finish() = 0;
    /// Closes without a trailer. Never throws; may be called in any state.
    virtual void Abort() noexcept = 0;
};

} // namespace Kestra::Proc
