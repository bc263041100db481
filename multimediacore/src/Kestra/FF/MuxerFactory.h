#pragma once

#include "Kestra/Core/IMuxerFactory.h"
#include <memory>

namespace Kestra::FF {

class MuxerFactory final : public Core::IMuxerFactory {
public:
    boost::intrusive_ptr<Proc::IMuxer> CreateMuxer(const boost::intrusive_ptr<Conf::IFormatFile>& format,
                                                   const boost::intrusive_ptr<Core::IDataOutput>& output) override;
};

std::shared_ptr<Core::IMuxerFactory> MakeMuxerFactory();

} // namespace Kestra::FF
