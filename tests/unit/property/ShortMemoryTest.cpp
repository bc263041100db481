// SPDX-License-Identifier: GPL-3.0-or-later
// Copies of a tree where memory is short.
#include "Kestra/Core/Property.h"
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

namespace {

long allowed = -1; ///< allocations that are still granted; any number for -1

void* granted(std::size_t size) {
    void* memory = allowed == 0 ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    allowed -= allowed > 0 ? 1 : 0;
    return memory;
}

} // namespace

/// The program's own, and so the engine's too.
__attribute__((visibility("default"))) void* operator new(std::size_t size) {
    return granted(size);
}
__attribute__((visibility("default"))) void operator delete(void* memory) noexcept {
    std::free(memory);
}
__attribute__((visibility("default"))) void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

TEST(Property, ACopyThatFindsNoMemoryThrows) {
    Kestra::Core::Property tree("a name that is too long to stand in the string itself");
    tree["another name, which is too long to stand in the string itself"].SetValue(std::string(100, 'x'));
    int refusals = 0;
    for (long granting = 0; granting < 100; ++granting) {
        allowed = granting;
        try {
            const Kestra::Core::Property copy(tree);
            allowed = -1;
            EXPECT_EQ(copy, tree);
            break;
        } catch (const std::bad_alloc&) {
            allowed = -1;
            ++refusals;
        }
    }
    EXPECT_EQ(refusals, 4) << "the names, the value, the children";
}
