// SPDX-License-Identifier: GPL-3.0-or-later
// TestSupport::ShortMemory: operator new finds no memory on this thread, in this program.
#pragma once

namespace TestSupport {

/// As long as it lives. Qt is not refused anything, nor is who asks malloc.
class ShortMemory {
public:
    ShortMemory();
    ~ShortMemory();
    ShortMemory(const ShortMemory&) = delete;
    ShortMemory& operator=(const ShortMemory&) = delete;

    /// How often it was refused.
    int refusals() const;
};

} // namespace TestSupport
