// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::ChunkCalls: what threads that encode chunks of sound are about to do.
#pragma once

#include <functional>

namespace Kestra::Fakes {

/// As long as it lives, `heard` is called before each frame that such a thread hands to its encoder, on that thread.
/// What it throws leaves the call into the codecs. One at a time.
class ChunkCalls {
public:
    explicit ChunkCalls(std::function<void()> heard);
    ~ChunkCalls();
    ChunkCalls(const ChunkCalls&) = delete;
    ChunkCalls& operator=(const ChunkCalls&) = delete;
};

} // namespace Kestra::Fakes
