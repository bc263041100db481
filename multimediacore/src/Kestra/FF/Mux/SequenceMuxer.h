// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SequenceMuxer: pictures that are files of their own.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Conf/NumberedName.h"
#include "Kestra/Core/IDataOutput.h"
#include "Kestra/Proc/IMuxer.h"
#include <string>

namespace Kestra::FF {

/// Takes one track of the container's codec. The output's path is a folder, which is there already, and in it a pattern
/// as Conf::NumberedName reads it: each packet becomes the file of the next number, from 0, in place of whatever is
/// called so. The output itself is never opened. What an aborted run has written stays.
class SequenceMuxer final : public Proc::IMuxer, public RefCountImpl {
public:
    /// `container` outlives the muxer. Throws ProcException (MuxerRefused) for a path without such a pattern, and for
    /// options, of which there are none.
    SequenceMuxer(const Conf::Container& container, const Conf::IFormatFile& format, const Core::IDataOutput& output);

    int AddStream(const boost::intrusive_ptr<Conf::IFormatCodec>& format) override;
    void Open() override;
    void Write(int index, const boost::intrusive_ptr<Proc::IDataRaw>& packet) override;
    void Finish() override;
    void Abort() noexcept override;

private:
    enum class State { Adding, Open, Done };

    void RequireState(State wanted, const char* operation, SourcePlace place = SourcePlace::Here()) const;

    const Conf::Container& container;
    std::string folder; ///< with its slash; empty for the current one
    Conf::NumberedName name;
    std::int64_t next = 0;
    bool hasTrack = false;
    State state = State::Adding;
};

} // namespace Kestra::FF
