// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Core/Property.h"
#include "Kestra/Proc/IEncoder.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/IStreamVideo.h"

namespace Kestra::Proc {

/// From any thread. `properties` is an encoder description tree (Conf::IFormatCodec's tags). What it leaves open is
/// taken from the stream. The codec itself opens later, in the encoder's Prepare. Throws ProcException (CodecNotFound)
/// for an unknown codec, std::invalid_argument for a null stream.
class KESTRA_EXPORT ICodecFactory {
public:
    virtual ~ICodecFactory();
    virtual boost::intrusive_ptr<IEncoder> CreateVideoEncoder(const boost::intrusive_ptr<IStreamVideo>& stream,
                                                              const Core::Property& properties) = 0;
    virtual boost::intrusive_ptr<IEncoder> CreateAudioEncoder(const boost::intrusive_ptr<IStreamAudio>& stream,
                                                              const Core::Property& properties) = 0;
};

} // namespace Kestra::Proc
