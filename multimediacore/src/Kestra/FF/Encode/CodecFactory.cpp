// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/CodecFactory.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Encode/AudioEncoderCore.h"
#include "Kestra/FF/Encode/Encoder.h"
#include "Kestra/FF/Encode/VideoEncoderCore.h"
#include <stdexcept>

namespace Kestra::FF {

boost::intrusive_ptr<Proc::IEncoder>
CodecFactory::CreateVideoEncoder(const boost::intrusive_ptr<Proc::IStreamVideo>& stream,
                                 const Core::Property& properties) {
    if (!stream)
        KESTRA_THROW(std::invalid_argument("a video encoder needs a stream; it was given none"));
    return new Encoder(new VideoEncoderCore(stream, properties));
}

boost::intrusive_ptr<Proc::IEncoder>
CodecFactory::CreateAudioEncoder(const boost::intrusive_ptr<Proc::IStreamAudio>& stream,
                                 const Core::Property& properties) {
    if (!stream)
        KESTRA_THROW(std::invalid_argument("an audio encoder needs a stream; it was given none"));
    return new Encoder(new AudioEncoderCore(stream, properties));
}

std::shared_ptr<Proc::ICodecFactory> MakeCodecFactory() {
    return std::make_shared<CodecFactory>();
}

} // namespace Kestra::FF
