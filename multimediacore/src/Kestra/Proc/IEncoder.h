// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IEncoder: a raw stream that encodes another stream.
#pragma once

#include "Kestra/Proc/IStreamRaw.h"
#include "Kestra/Proc/Settings/SettingsTwoPassEncoding.h"

namespace Kestra::Proc {

/// Made by Proc::ICodecFactory. Holds its source stream; conforms what it is given (size, pixel format, colour,
/// constant frame rate, sample format and rate) to its codec description. The codec opens in Prepare(), on the reading
/// thread; Initialize() is possible until then. Once interrupted, every read throws Interrupted, and so does a
/// Prepare() that waits; the codec is not flushed. Reset() rewinds the source stream and forgets the codec.
class KESTRA_EXPORT IEncoder : public IStreamRaw {
public:
    ~IEncoder() override;

    /// What Initialize() takes to make this run one pass of two.
    static Core::Property Settings2Property(const SettingsTwoPassEncoding& settings);

protected:
    using IStreamRaw::IStreamRaw;
};

} // namespace Kestra::Proc
