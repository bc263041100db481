// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::TimeToProgress: how far something has come at a time.
#pragma once

#include "KestraExport.h"
#include <cstdint>
#include <functional>

namespace Kestra::Proc {

/// A value. A function of time over a range; both ends are engine time and 0 until they are set.
class KESTRA_EXPORT TimeToProgress {
public:
    /// Given the time, the range's start and its end.
    using Function = std::function<double(const std::int64_t&, const std::int64_t&, const std::int64_t&)>;

    /// Throws std::invalid_argument for an empty function.
    explicit TimeToProgress(Function function);

    void SetStart(std::int64_t time) { start = time; }
    void SetEnd(std::int64_t time) { end = time; }
    std::int64_t GetStart() const { return start; }
    std::int64_t GetEnd() const { return end; }

    /// What the function gives; a time outside the range counts as the nearer end.
    double GetProgress(std::int64_t time) const;

private:
    Function function;
    std::int64_t start = 0;
    std::int64_t end = 0;
};

} // namespace Kestra::Proc
