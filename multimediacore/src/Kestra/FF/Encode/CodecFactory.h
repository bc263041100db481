// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/ICodecFactory.h"
#include <memory>

namespace Kestra::FF {

class CodecFactory final : public Proc::ICodecFactory {
public:
    boost::intrusive_ptr<Proc::IEncoder> CreateVideoEncoder(const boost::intrusive_ptr<Proc::IStreamVideo>& stream,
                                                            const Core::Property& properties) override;
    boost::intrusive_ptr<Proc::IEncoder> CreateAudioEncoder(const boost::intrusive_ptr<Proc::IStreamAudio>& stream,
                                                            const Core::Property& properties) override;
};

std::shared_ptr<Proc::ICodecFactory> MakeCodecFactory();

} // namespace Kestra::FF
