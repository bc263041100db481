// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::OperationLog: what was done to a few views, to be done again, shortened, written down and read.
#pragma once

#include "unit/message/Steps.h"
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <vector>

namespace Sweep {

using OperationLog = std::vector<Step>;

/// The same for the same seed, on every machine: some dozens of steps, most with operations inside of hooks. Values lie
/// below `values`.
OperationLog randomLog(std::uint64_t seed, int values);

/// The same as `log` in what `tells` sees in it, and no step and no reaction of it can be left out. `tells` has to be
/// true of `log`.
OperationLog shortened(OperationLog log, const std::function<bool(const OperationLog&)>& tells);

/// A line a step.
std::ostream& operator<<(std::ostream& out, const OperationLog& log);
/// Throws std::invalid_argument for a line that is no step; empty lines are passed over.
OperationLog readLog(std::istream& in);

} // namespace Sweep
