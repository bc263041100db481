// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Filter/EffectFactory.h"

#include "Kestra/FF/Av/Implementation.h"
#include "Kestra/FF/Filter/AlphaEnvelope.h"
#include "Kestra/FF/Filter/ColorspaceConverter.h"
#include "Kestra/Proc/ProcException.h"

namespace Kestra::FF {

EffectFactory::Effect EffectFactory::CreateColorspaceConverter(const Proc::SettingsColorspaceConverter& settings,
                                                               const std::string& implName) {
    RequireImplementation("colour-space converter", implName);
    return new ColorspaceConverter(settings);
}

EffectFactory::Effect EffectFactory::CreateEffect(const std::string& settingsClassId,
                                                  const Proc::TimeToProgress& progress, const std::string& implName) {
    if (settingsClassId != Proc::SettingsEffectVideoAlphaEnvelope::CLASS_ID)
        KESTRA_THROW(Proc::FilterException(Proc::TranscodingError::NotSupported,
                                           "There is no effect of the class \"" + settingsClassId + '"'));
    RequireImplementation("alpha envelope", implName);
    return new AlphaEnvelope(progress);
}

std::shared_ptr<Proc::IEffectFactory> MakeEffectFactory() {
    return std::make_shared<EffectFactory>();
}

} // namespace Kestra::FF
