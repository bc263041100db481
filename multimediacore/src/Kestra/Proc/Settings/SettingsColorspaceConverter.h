// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Conf/PixelFormat.h"

namespace Kestra::Proc {

/// Settings of the effect that brings pictures to a pixel format.
class SettingsColorspaceConverter {
public:
    /// Where `keepAlpha` is false, or the format has no alpha, pictures come out opaque, blended over black.
    SettingsColorspaceConverter(Conf::PixelFormat format, bool keepAlpha)
        : format(format)
        , keepAlpha(keepAlpha) {}

    Conf::PixelFormat GetPixelFormat() const { return format; }
    bool KeepsAlpha() const { return keepAlpha; }

private:
    Conf::PixelFormat format;
    bool keepAlpha;
};

} // namespace Kestra::Proc
