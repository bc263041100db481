// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Mux/MuxerFactory.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Mux/MuxerFF.h"
#include "Kestra/FF/Mux/SequenceMuxer.h"
#include "Kestra/FF/Mux/WebPMuxer.h"
#include <cstring>
#include <stdexcept>

namespace Kestra::FF {

boost::intrusive_ptr<Proc::IMuxer> MuxerFactory::CreateMuxer(const boost::intrusive_ptr<Conf::IFormatFile>& format,
                                                             const boost::intrusive_ptr<Core::IDataOutput>& output) {
    if (!format || !output)
        KESTRA_THROW(std::invalid_argument("a muxer needs a description of its container and an output"));
    const std::string id = format->GetContainerID();
    const Conf::Container* const container = Conf::Container::Find(id);
    if (!container)
        Fail(Proc::TranscodingError::MuxerRefused,
             id.empty() ? std::string("The description names no container") : "There is no container \"" + id + "\"");
    if (container->sequence)
        return new SequenceMuxer(*container, *format, *output);
    if (std::strcmp(container->muxer, "webp") == 0)
        return new WebPMuxer(*container, *format, output);
    return new MuxerFF(*container, format, output);
}

std::shared_ptr<Proc::IMuxerFactory> MakeMuxerFactory() {
    return std::make_shared<MuxerFactory>();
}

} // namespace Kestra::FF
