// SPDX-License-Identifier: GPL-3.0-or-later
// What encoders and muxers know by name.
#pragma once

#include "Kestra/Conf/CodecID.h"
#include <string>

namespace Kestra::FF {

/// As ClientAPI::EncoderQuery says.
bool TakesPixelFormat(Conf::CodecID codec, const std::string& pixelFormat);
std::string WhyNotOption(Conf::CodecID codec, const std::string& name, const std::string& value, bool exactRate);
std::string WhyNotMuxerOption(const std::string& container, const std::string& name, const std::string& value);

} // namespace Kestra::FF
