// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace Kestra::Proc {

/// Settings of the filter that gives a sound stream an exact length: what is over is cut, what is missing is silence.
class SettingsFilterDurationTrimmer {
public:
    /// Engine time, not negative.
    void SetDuration(std::int64_t value) { duration = value; }
    std::int64_t GetDuration() const { return duration; }

private:
    std::int64_t duration = 0;
};

} // namespace Kestra::Proc
