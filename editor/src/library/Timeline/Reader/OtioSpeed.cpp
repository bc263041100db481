// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioSpeed.h"

#include "Timeline/Reader/OtioSchema.h"
#include "Timeline/Reader/OtioTime.h"
#include <cmath>

namespace Timeline {
namespace {

constexpr double HIGHEST_SPEED = 100;

/// `speed` as the effect changes it.
double changed(OtioContext& context, double speed, const OtioNode& effect) {
    const OtioKind kind = kindOf(effect);
    checkVersion(context, effect);
    if (kind == OtioKind::FreezeFrame)
        return 0;
    if (kind != OtioKind::TimeWarp) {
        context.warn(effect, "the effect \"" + effect.text("effect_name") + "\" is not known and is left out");
        return speed;
    }
    const OtioNode scalar = effect["time_scalar"];
    if (scalar.value().IsNumber() && std::abs(speed * scalar.value().GetDouble()) <= HIGHEST_SPEED)
        return speed * scalar.value().GetDouble();
    context.error(scalar, "the speed is no number from -100 to 100");
    return speed;
}

} // namespace

boost::rational<long long> readSpeed(OtioContext& context, const OtioNode& node) {
    double speed = 1;
    const OtioNode effects = node["effects"];
    for (std::size_t index = 0; effects.isArray() && index < effects.size(); ++index)
        if (const OtioNode effect = effects.at(index); effect.flag("enabled", true))
            speed = changed(context, speed, effect);
    return exactFraction(speed);
}

} // namespace Timeline
