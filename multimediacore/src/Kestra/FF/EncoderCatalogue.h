// Which encoders of the codec library stand for the engine's codecs.
#pragma once

#include "Kestra/Conf/IFormatCodec.h"
#include "Kestra/FF/Handles.h"

namespace Kestra::FF {

/// The encoder for the codec that `description` names, of that medium. Throws ProcException (CodecNotFound) that names
/// the codec: unknown, of the other medium, or without an encoder in this installation.
const AVCodec& FindEncoder(const Conf::IFormatCodec& description, AVMediaType medium);

} // namespace Kestra::FF
