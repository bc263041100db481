// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Core/IDataOutput.h"
#include "Kestra/Proc/IMuxer.h"

namespace Kestra::Proc {

class KESTRA_EXPORT IMuxerFactory {
public:
    virtual ~IMuxerFactory();
    /// From any thread. Throws ProcException (MuxerRefused) for a container that it does not know.
    virtual boost::intrusive_ptr<IMuxer> CreateMuxer(const boost::intrusive_ptr<Conf::IFormatFile>& format,
                                                     const boost::intrusive_ptr<Core::IDataOutput>& output) = 0;
};

} // namespace Kestra::Proc
