// SPDX-License-Identifier: GPL-3.0-or-later
// Which encoders of the codec library stand for the engine's codecs.
#pragma once

#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/FF/Av/Handles.h"
#include <vector>

namespace Kestra::FF {

/// The encoder for the codec that `description` names, of that medium. Throws ProcException (CodecNotFound) that names
/// the codec: unknown, of the other medium, or without an encoder in this installation.
const AVCodec& FindEncoder(const Conf::IFormatCodec& description, AVMediaType medium);

/// Every encoder that may come to encode the codec, the preferred one first; none where this installation has none.
std::vector<const AVCodec*> EncodersOf(Conf::CodecID id);

/// Whether the encoder takes frames of that format as they are.
bool TakesFormat(const AVCodec& codec, AVPixelFormat format);

/// `codec`, or another encoder of the same codec where this one does not take frames so small.
const AVCodec& EncoderForSize(const AVCodec& codec, int width, int height);

/// `codec`, or another encoder of the same codec where this one has no passes and cannot hold a constant bitrate.
const AVCodec& EncoderForExactRates(const AVCodec& codec);

/// `codec`, or where `description` leaves the bits of PCM open, the one that keeps those of the samples of `stream`; 16
/// bits for what was coded with loss and has none of its own.
const AVCodec& EncoderForSamples(const AVCodec& codec, const Conf::IFormatCodec& description,
                                 const Conf::IFormatCodecAudio& stream);

} // namespace Kestra::FF
