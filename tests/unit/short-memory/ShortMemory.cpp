// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/short-memory/ShortMemory.h"

#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <new>

namespace {

thread_local bool isShort = false;
thread_local int refused = 0;

/// Qt ends the process when it gets nothing.
bool isQt(const void* place) {
    Dl_info info{};
    return dladdr(place, &info) != 0 && std::strstr(info.dli_fname, "libQt5");
}

} // namespace

/// The program's own, and so every library's too.
__attribute__((visibility("default"))) void* operator new(std::size_t size) {
    const bool refuses = isShort && !isQt(__builtin_extract_return_addr(__builtin_return_address(0)));
    refused += refuses ? 1 : 0;
    void* memory = refuses ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}
__attribute__((visibility("default"))) void operator delete(void* memory) noexcept {
    std::free(memory);
}
__attribute__((visibility("default"))) void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace TestSupport {

ShortMemory::ShortMemory() {
    isShort = true;
    refused = 0;
}

ShortMemory::~ShortMemory() {
    isShort = false;
}

int ShortMemory::refusals() const {
    return refused;
}

} // namespace TestSupport
