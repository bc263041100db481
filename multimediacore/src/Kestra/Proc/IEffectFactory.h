// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IEffectFactory: effects, to be added to a host.
#pragma once

#include "Kestra/Proc/IEffectVideo.h"
#include "Kestra/Proc/ImplNames.h"
#include "Kestra/Proc/Settings/SettingsColorspaceConverter.h"
#include "Kestra/Proc/Settings/SettingsEffectVideoAlphaEnvelope.h"
#include "Kestra/Proc/TimeToProgress.h"
#include <string>

namespace Kestra::Proc {

/// From any thread. FilterException (NotSupported) for an implementation or a class that there is not.
class KESTRA_EXPORT IEffectFactory {
public:
    using Effect = boost::intrusive_ptr<IEffectVideo>;

    virtual ~IEffectFactory();
    /// Throws std::invalid_argument for a pixel format that is none (Unknown, Other).
    virtual Effect CreateColorspaceConverter(const SettingsColorspaceConverter& settings,
                                             const std::string& implName) = 0;
    /// The effect whose settings have that class id, driven by the progress over the time of its host's stream.
    virtual Effect CreateEffect(const std::string& settingsClassId, const TimeToProgress& progress,
                                const std::string& implName) = 0;
};

} // namespace Kestra::Proc
