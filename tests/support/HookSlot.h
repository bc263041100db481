// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// The number of a hook's place in its class's table of virtual functions, counted behind the two places of the
/// destructor. As compilers for x86 lay out a pointer to a virtual function: the place's offset in bytes, plus one.
template <class Method>
std::size_t hookSlot(Method method) {
    std::array<std::uintptr_t, 2> parts{};
    static_assert(sizeof(method) == sizeof(parts));
    std::memcpy(parts.data(), &method, sizeof(parts));
    return (parts[0] - 1) / sizeof(void*) - 1;
}
