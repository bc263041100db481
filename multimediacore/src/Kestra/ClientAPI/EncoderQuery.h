// SPDX-License-Identifier: GPL-3.0-or-later
// What the encoders and muxers of this installation know by name.
#pragma once

#include "Kestra/Conf/CodecID.h"
#include "KestraExport.h"
#include <string>

namespace Kestra::ClientAPI {

/// Answers from the tables of the codec library; nothing is opened, so a question costs microseconds.
struct KESTRA_EXPORT EncoderQuery {
    /// Whether an encoder of the codec takes pictures of that format, by the engine's or the library's name for it.
    static bool TakesPixelFormat(Conf::CodecID codec, const std::string& pixelFormat);
    /// Why no encoder of the codec takes the option with that value; empty when one does. `exactRate`: with two passes,
    /// or at a constant bitrate, which not every one of them does. What an encoder tells only when it opens is not
    /// seen.
    static std::string WhyNotOption(Conf::CodecID codec, const std::string& name, const std::string& value,
                                    bool exactRate);
    /// The same of a container's muxer.
    static std::string WhyNotMuxerOption(const std::string& container, const std::string& name,
                                         const std::string& value);

    EncoderQuery() = delete;
};

} // namespace Kestra::ClientAPI
