// SPDX-License-Identifier: GPL-3.0-or-later
// Preloaded: writes down how much memory the codecs' libraries may take in one piece, each time that is set, into the
// file that LIMIT_SHIM_FILE names.
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>

extern "C" __attribute__((visibility("default"))) void av_max_alloc(std::size_t bytes);

extern "C" void av_max_alloc(std::size_t bytes) {
    if (const char* const path = std::getenv("LIMIT_SHIM_FILE"))
        if (std::FILE* const file = std::fopen(path, "a")) {
            std::fprintf(file, "%zu\n", bytes);
            std::fclose(file);
        }
    if (void* const next = dlsym(RTLD_NEXT, "av_max_alloc"))
        reinterpret_cast<void (*)(std::size_t)>(next)(bytes);
}
