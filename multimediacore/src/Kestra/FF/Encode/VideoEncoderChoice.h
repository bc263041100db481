// SPDX-License-Identifier: GPL-3.0-or-later
// What frames an encoder is given, from its description and the stream.
#pragma once

#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/FF/Picture/EncoderInput.h"

namespace Kestra::FF {

/// Size and shape are the stream's (the description's where the stream has none), the pixel format is the description's
/// or that which `codec` takes and which loses least of the stream's, the colour is the stream's, completed, or that of
/// ordinary frames where the stream's range is a high one and the description does not say to keep it. Sides are made
/// to fit the pixel format's subsampling and are never 0. Throws ProcException (CodecRefused) for a pixel format that
/// the codec does not take.
EncoderInput ChooseInput(const Conf::IFormatCodecVideo& description, const Conf::IFormatCodecVideo& stream,
                         const AVCodec& codec);

/// The description's frame rate or the stream's. Throws ProcException (CodecRefused) when neither has one.
boost::rational<long long> ChooseFrameRate(const Conf::IFormatCodecVideo& description,
                                           const Conf::IFormatCodecVideo& stream);

} // namespace Kestra::FF
