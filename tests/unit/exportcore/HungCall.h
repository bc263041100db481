// SPDX-License-Identifier: GPL-3.0-or-later
// What happens while a call of the system hangs, which the tests of this program stand in for.
#pragma once

#include <functional>
#include <utility>

namespace TestSystem {

/// The next lstat() of this process, once.
extern std::function<void()> whileLooking;

inline void happen(std::function<void()>& event) {
    if (const auto happening = std::exchange(event, nullptr))
        happening();
}

} // namespace TestSystem
