// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/RunProgress.h"

#include "Types/Time.h"
#include <optional>

namespace Export {

namespace {

constexpr KTime UNKNOWN{-1};
/// Before that the engine has seen too little for an estimate.
constexpr qint64 SETTLING_MILLISECONDS = 2000;

/// Nothing for what does not fit, NaN and the infinities included.
std::optional<qint64> truncate(double value) {
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (!(value >= -limit && value < limit)) {
        return std::nullopt;
    }
    return static_cast<qint64>(value);
}

KTime extrapolate(const PassProgress& pass, const RunPosition& run) {
    const auto duration = static_cast<double>(Types::fromAvTime(pass.duration).count());
    const auto total = truncate(static_cast<double>(run.passCount) * duration);
    const auto finished = truncate(static_cast<double>(run.passIndex) * duration);
    qint64 done = 0;
    qint64 left = 0;
    if (!total || !finished || __builtin_add_overflow(*finished, Types::fromAvTime(pass.position).count(), &done) ||
        done == 0 || __builtin_sub_overflow(*total, done, &left)) {
        return UNKNOWN;
    }
    const double perDone = static_cast<double>(run.elapsed.count()) / static_cast<double>(done);
    const auto estimate = truncate(perDone * static_cast<double>(left));
    return estimate ? KTime(*estimate) : UNKNOWN;
}

} // namespace

std::int32_t overallPercent(const PassProgress& pass, const RunPosition& run) {
    const std::int64_t hundredths = std::int64_t{run.passIndex} * 100 + pass.percent;
    return static_cast<std::int32_t>(hundredths / run.passCount);
}

KTime remainingTime(const PassProgress& pass, const RunPosition& run) {
    if (pass.elapsedSeconds == -1 || std::int64_t{pass.elapsedSeconds} * 1000 < SETTLING_MILLISECONDS) {
        return UNKNOWN;
    }
    if (run.passIndex != run.passCount - 1) {
        return extrapolate(pass, run);
    }
    return pass.remainingSeconds == -1 ? UNKNOWN : KTime::fromSeconds(pass.remainingSeconds);
}

} // namespace Export
