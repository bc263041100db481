// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::MemoryWatch: hears when a codec mentions that it got no memory.
#pragma once

#include <atomic>
#include <cstdarg>

namespace Kestra::FF {

/// For decoders, some of which go on without what they could not allocate, and give pictures that are wrong. Its
/// address is the `opaque` of the codec's context and of those that libav makes of it for its threads; it outlives
/// them.
class MemoryWatch {
public:
    MemoryWatch();
    ~MemoryWatch();
    MemoryWatch(const MemoryWatch&) = delete;
    MemoryWatch& operator=(const MemoryWatch&) = delete;

    /// Takes what the codec answered. Throws std::bad_alloc once it got no memory, whether it answered so or only
    /// mentioned it.
    void Check(int answer);

    /// For the one callback of libav's log, on whatever thread it comes.
    static void Offer(void* object, int level, const char* format, va_list arguments) noexcept;

private:
    /// A line that seems to be of memory.
    void Take(const char* line) noexcept;
    bool IsOfFullList() noexcept;

    std::atomic<bool> told{false};
    std::atomic<int> fullLists{0}; ///< that were mentioned, and not answered with yet
};

} // namespace Kestra::FF
