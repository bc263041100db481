// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/IMuxerFactory.h"
#include <memory>

namespace Kestra::FF {

class MuxerFactory final : public Proc::IMuxerFactory {
public:
    boost::intrusive_ptr<Proc::IMuxer> CreateMuxer(const boost::intrusive_ptr<Conf::IFormatFile>& format,
                                                   const boost::intrusive_ptr<Core::IDataOutput>& output) override;
};

std::shared_ptr<Proc::IMuxerFactory> MakeMuxerFactory();

} // namespace Kestra::FF
