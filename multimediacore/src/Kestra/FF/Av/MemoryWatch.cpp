// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/MemoryWatch.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <new>
#include <vector>

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace Kestra::FF {

namespace {

/// Others in the process may have contexts of their own, whose `opaque` is theirs.
struct Watches {
    std::mutex mutex;
    std::vector<MemoryWatch*> all;
};

Watches& TheWatches() {
    static auto& watches = *new Watches;
    return watches;
}

bool IsOfMemory(const char* line) {
    // "-12" is what a buffer was refused with.
    for (const char* words : {"rror allocating", "ailed to allocate", "ould not allocate", "annot allocate",
                              "nable to allocate", "ut of memory", "get_buffer() failed (-12"})
        if (std::strstr(line, words))
            return true;
    return false;
}

} // namespace

MemoryWatch::MemoryWatch() {
    Watches& watches = TheWatches();
    const std::lock_guard<std::mutex> lock(watches.mutex);
    watches.all.push_back(this);
}

MemoryWatch::~MemoryWatch() {
    Watches& watches = TheWatches();
    const std::lock_guard<std::mutex> lock(watches.mutex);
    watches.all.erase(std::find(watches.all.begin(), watches.all.end(), this));
}

void MemoryWatch::Check(int answer) {
    if (answer == AVERROR(ENOMEM) && !IsOfFullList())
        told = true;
    if (told)
        throw std::bad_alloc();
}

// The decoder of HEVC has a list of some frames. Where many are missing that others refer to, it is full, which the
// decoder tells as if there were no memory: in its words, and mostly in its answer.
void MemoryWatch::Take(const char* line) noexcept {
    if (std::strstr(line, "DPB full"))
        ++fullLists;
    else
        told = true;
}

bool MemoryWatch::IsOfFullList() noexcept {
    int left = fullLists;
    while (left > 0)
        if (fullLists.compare_exchange_weak(left, left - 1))
            return true;
    return false;
}

void MemoryWatch::Offer(void* object, int level, const char* format, va_list arguments) noexcept {
    if (level > AV_LOG_ERROR || !object || *static_cast<const AVClass**>(object) != avcodec_get_class())
        return;
    std::array<char, 256> line{};
    va_list copy;
    va_copy(copy, arguments);
    std::vsnprintf(line.data(), line.size(), format, copy);
    va_end(copy);
    if (!IsOfMemory(line.data()))
        return;
    const void* wanted = static_cast<const AVCodecContext*>(object)->opaque;
    Watches& watches = TheWatches();
    const std::lock_guard<std::mutex> lock(watches.mutex);
    const auto found = std::find(watches.all.begin(), watches.all.end(), wanted);
    if (found != watches.all.end())
        (*found)->Take(line.data());
}

} // namespace Kestra::FF
