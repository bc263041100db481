// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SequenceMuxer: pictures that are files of their own.
#pragma once

#include "Kestra/Conf/NumberedName.h"
#include "Kestra/Core/IDataOutput.h"
#include "Kestra/FF/Mux/OneTrackMuxer.h"
#include <string>

namespace Kestra::FF {

/// Takes one track of the container's codec. The output's path is a folder, which is there already, and in it a pattern
/// as Conf::NumberedName reads it: each packet becomes the file of the next number, from 0, in place of whatever is
/// called so. The output itself is never opened. What an aborted run has written stays.
class SequenceMuxer final : public OneTrackMuxer {
public:
    /// `container` outlives the muxer. Throws ProcException (MuxerRefused) for a path without such a pattern, and for
    /// options, of which there are none.
    SequenceMuxer(const Conf::Container& container, const Conf::IFormatFile& format, const Core::IDataOutput& output);

private:
    void Put(const Proc::IDataRaw& packet) override;

    std::string folder; ///< with its slash; empty for the current one
    Conf::NumberedName name;
    std::int64_t next = 0;
};

} // namespace Kestra::FF
