// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/memory/MemoryFaults.h"

#include "Kestra/Proc/LoadEngine.h"
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <execinfo.h>
#include <link.h>
#include <new>
#include <unwind.h>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SWEEP_HAS_NO_MEMORY 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define SWEEP_HAS_NO_MEMORY 1
#endif
#endif

namespace Sweep {
namespace {

enum class Asker { Ours, Codecs, Standard, Other };

struct Library {
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
    Asker asker = Asker::Other;
    char name[64] = "";
};

std::array<Library, 400> libraries;
std::size_t libraryCount = 0;
std::array<std::atomic<long>, 2> counts;
std::atomic<bool> armed{false};
std::atomic<bool> failed{false};
MemoryFaults::Plan plan;
MemoryFaults::Places firstPlaces;
thread_local bool looking = false;

bool begins(const char* name, const char* with) {
    return std::strncmp(name, with, std::strlen(with)) == 0;
}

Asker askerOf(const char* name) {
    for (const char* ours : {"libKestra", "libEditor", "libExportCore"})
        if (begins(name, ours))
            return Asker::Ours;
    for (const char* codecs : {"libav", "libsw"})
        if (begins(name, codecs))
            return Asker::Codecs;
    // The program itself is the test and what stands here.
    return begins(name, "libstdc++") || *name == '\0' ? Asker::Standard : Asker::Other;
}

int learnOne(dl_phdr_info* info, std::size_t, void*) {
    if (libraryCount == libraries.size())
        return 1;
    const char* slash = std::strrchr(info->dlpi_name, '/');
    Library& library = libraries[libraryCount];
    std::snprintf(library.name, sizeof library.name, "%s", slash ? slash + 1 : info->dlpi_name);
    library.asker = askerOf(library.name);
    library.begin = ~std::uintptr_t{0};
    for (int at = 0; at < info->dlpi_phnum; ++at) {
        const auto& segment = info->dlpi_phdr[at];
        if (segment.p_type != PT_LOAD)
            continue;
        const std::uintptr_t begin = info->dlpi_addr + segment.p_vaddr;
        library.begin = std::min(library.begin, begin);
        library.end = std::max(library.end, begin + segment.p_memsz);
    }
    ++libraryCount;
    return 0;
}

const Library* libraryOf(const void* place) {
    const auto address = reinterpret_cast<std::uintptr_t>(place);
    for (std::size_t at = 0; at < libraryCount; ++at)
        if (address >= libraries[at].begin && address < libraries[at].end)
            return &libraries[at];
    return nullptr;
}

Asker askerAt(const void* place) {
    const Library* library = libraryOf(place);
    return library ? library->asker : Asker::Other;
}

/// Goes on outwards until somebody stands there who is not the standard library.
_Unwind_Reason_Code lookAt(_Unwind_Context* context, void* found) {
    const Asker asker = askerAt(reinterpret_cast<const void*>(_Unwind_GetIP(context)));
    if (asker == Asker::Standard)
        return _URC_NO_REASON;
    *static_cast<Asker*>(found) = asker;
    return _URC_NORMAL_STOP;
}

/// The standard library asks for somebody.
Asker behindTheStandard() {
    Asker asker = Asker::Other;
    _Unwind_Backtrace(&lookAt, &asker);
    return asker;
}

bool failsFor(Asker asker) {
    const auto whose = asker == Asker::Ours ? MemoryFaults::Whose::Ours : MemoryFaults::Whose::Codecs;
    const long number = counts[static_cast<std::size_t>(whose)]++;
    if (plan.at < 0 || plan.whose != whose || number < plan.at || (number > plan.at && !plan.forEver))
        return false;
    if (!failed.exchange(true))
        backtrace(firstPlaces.data(), static_cast<int>(firstPlaces.size()));
    return true;
}

[[maybe_unused]] bool fails(const void* askedFrom, bool standardMayAskForOthers) {
    if (!armed || looking)
        return false;
    looking = true;
    Asker asker = askerAt(askedFrom);
    if (asker == Asker::Standard && standardMayAskForOthers)
        asker = behindTheStandard();
    const bool result = (asker == Asker::Ours || asker == Asker::Codecs) && failsFor(asker);
    looking = false;
    return result;
}

} // namespace

void MemoryFaults::learn() {
    // The first look takes memory itself.
    Places places{};
    backtrace(places.data(), static_cast<int>(places.size()));
    libraryCount = 0;
    Kestra::Proc::LoadEngine(); // what comes later is nobody's
    dl_iterate_phdr(&learnOne, nullptr);
}

void MemoryFaults::arm(const Plan& newPlan) {
    armed = false;
    plan = newPlan;
    for (auto& count : counts)
        count = 0;
    failed = false;
    firstPlaces = {};
    armed = true;
}

void MemoryFaults::disarm() {
    armed = false;
}

long MemoryFaults::count(Whose whose) {
    return counts[static_cast<std::size_t>(whose)];
}

bool MemoryFaults::hasFailed() {
    return failed;
}

const MemoryFaults::Places& MemoryFaults::where() {
    return firstPlaces;
}

void MemoryFaults::name(const Places& places, char* text, std::size_t size) {
    std::size_t written = 0;
    int named = 0;
    *text = '\0';
    for (const void* place : places) {
        const Library* library = libraryOf(place);
        if (named == 9 || written >= size)
            return;
        if (!library || library->asker == Asker::Standard || begins(library->name, "libc.") ||
            begins(library->name, "linux-vdso"))
            continue;
        const auto deep = static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(place) - library->begin);
        written += static_cast<std::size_t>(
            std::snprintf(text + written, size - written, "%s%s+0x%zx", named++ ? " " : "", library->name, deep));
    }
}

bool MemoryFaults::isInCodecs(const Places& places) {
    for (const void* place : places) {
        const Library* library = libraryOf(place);
        if (library && library->asker != Asker::Standard && !begins(library->name, "libc.") &&
            !begins(library->name, "linux-vdso"))
            return library->asker == Asker::Codecs;
    }
    return false;
}

void MemoryFaults::nameCall(const Places& places, char* text, std::size_t size) {
    *text = '\0';
    const void* called = nullptr;
    for (const void* place : places) {
        const Asker asker = askerAt(place);
        if (asker == Asker::Codecs) {
            called = place;
        } else if (asker == Asker::Ours) {
            Dl_info info{};
            if (called && dladdr(called, &info) != 0 && info.dli_sname)
                std::snprintf(text, size, "%s", info.dli_sname);
            return;
        }
    }
}

} // namespace Sweep

#ifndef SWEEP_HAS_NO_MEMORY

#define SWEEP_VISIBLE __attribute__((visibility("default")))
#define SWEEP_ASKED_FROM __builtin_extract_return_addr(__builtin_return_address(0))

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);

SWEEP_VISIBLE void* malloc(std::size_t size) {
    if (Sweep::fails(SWEEP_ASKED_FROM, false)) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_malloc(size);
}

SWEEP_VISIBLE void* calloc(std::size_t count, std::size_t size) {
    if (Sweep::fails(SWEEP_ASKED_FROM, false)) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_calloc(count, size);
}

SWEEP_VISIBLE void* realloc(void* memory, std::size_t size) {
    if (size != 0 && Sweep::fails(SWEEP_ASKED_FROM, false)) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_realloc(memory, size);
}

SWEEP_VISIBLE int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    if (Sweep::fails(SWEEP_ASKED_FROM, false))
        return ENOMEM;
    void* found = __libc_memalign(alignment, size);
    if (!found)
        return ENOMEM;
    *memory = found;
    return 0;
}

} // extern "C"

SWEEP_VISIBLE void* operator new(std::size_t size) {
    void* memory = Sweep::fails(SWEEP_ASKED_FROM, true) ? nullptr : __libc_malloc(size == 0 ? 1 : size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

SWEEP_VISIBLE void* operator new[](std::size_t size) {
    void* memory = Sweep::fails(SWEEP_ASKED_FROM, true) ? nullptr : __libc_malloc(size == 0 ? 1 : size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

SWEEP_VISIBLE void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    // The validator of the catalogue asks in this way, and does not look at what it gets: it crashes by itself.
    return __libc_malloc(size == 0 ? 1 : size);
}

SWEEP_VISIBLE void operator delete(void* memory) noexcept {
    std::free(memory);
}

SWEEP_VISIBLE void operator delete[](void* memory) noexcept {
    std::free(memory);
}

SWEEP_VISIBLE void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

SWEEP_VISIBLE void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

#endif
