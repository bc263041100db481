// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::IDataHelper: completes a description with what a codec or a container fixes.
#pragma once

#include "Kestra/Base/IRefCountable.h"
#include "Kestra/Core/Property.h"

namespace Kestra::Conf {

class KESTRA_EXPORT IDataHelper : public virtual IRefCountable {
public:
    ~IDataHelper() override;
    /// Adds the fixed settings to `tree`; what the preset has set itself stays.
    virtual void Apply(Core::Property& tree) const = 0;
};

/// The keys under which helpers are found.
class KESTRA_EXPORT IPreset {
public:
    static const char* const KEY_FILTER_VIDEO_CODEC;
    static const char* const KEY_FILTER_AUDIO_CODEC;
    static const char* const KEY_FORMAT;
};

} // namespace Kestra::Conf
