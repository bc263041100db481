// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/IEffectFactory.h"
#include <memory>

namespace Kestra::FF {

class EffectFactory final : public Proc::IEffectFactory {
public:
    Effect CreateColorspaceConverter(const Proc::SettingsColorspaceConverter& settings,
                                     const std::string& implName) override;
    Effect CreateEffect(const std::string& settingsClassId, const Proc::TimeToProgress& progress,
                        const std::string& implName) override;
};

std::shared_ptr<Proc::IEffectFactory> MakeEffectFactory();

} // namespace Kestra::FF
