#pragma once

#include "Kestra/Core/ICodecFactory.h"
#include <memory>

namespace Kestra::FF {

class CodecFactory final : public Core::ICodecFactory {
public:
    boost::intrusive_ptr<Proc::IEncoder> CreateVideoEncoder(const boost::intrusive_ptr<Proc::IStreamVideo>& stream,
                                                            const Core::Property& properties) override;
    boost::intrusive_ptr<Proc::IEncoder> CreateAudioEncoder(const boost::intrusive_ptr<Proc::IStreamAudio>& stream,
                                                            const Core::Property& properties) override;
};

std::shared_ptr<Core::ICodecFactory> MakeCodecFactory();

} // namespace Kestra::FF
