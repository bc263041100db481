// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Util/RemovalOnTheSpot.h"

#include <array>
#include <atomic>
#include <climits>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace Kestra::Util {

namespace {

enum State : int { Free, Written, Kept, Taken };

// What a signal handler may use: neither memory that is asked for nor locks. A path changes in a free place alone, and
// a place that is taken for removal never becomes free again.
struct Place {
    std::atomic<int> state{Free};
    RemovalOnTheSpot::Kind kind;
    std::array<char, PATH_MAX> path;
};
static_assert(std::atomic<int>::is_always_lock_free);

constexpr std::size_t PLACES = 64;
constexpr int DEEPEST = 8;
std::array<Place, PLACES> places;

bool change(Place& place, int from, int to) noexcept {
    return place.state.compare_exchange_strong(from, to);
}

bool isFolderItself(const char* name) noexcept {
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

void removeFolder(int parent, const char* name, int depth) noexcept;

// Not readdir(), which asks for memory.
void removeContent(int folder, int depth) noexcept {
    alignas(dirent64) std::array<char, 4096> entries;
    ssize_t size = 0;
    while ((size = getdents64(folder, entries.data(), entries.size())) > 0) {
        for (ssize_t at = 0; at < size;) {
            const auto* entry = reinterpret_cast<const dirent64*>(entries.data() + at);
            at += entry->d_reclen;
            if (!isFolderItself(entry->d_name) && unlinkat(folder, entry->d_name, 0) != 0)
                removeFolder(folder, entry->d_name, depth + 1);
        }
    }
}

void removeFolder(int parent, const char* name, int depth) noexcept {
    const int folder = depth < DEEPEST ? openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC) : -1;
    if (folder < 0)
        return;
    removeContent(folder, depth);
    close(folder);
    unlinkat(parent, name, AT_REMOVEDIR);
}

} // namespace

RemovalOnTheSpot::RemovalOnTheSpot(const QByteArray& path, Kind kind) noexcept
    : place(PLACES) {
    const auto size = static_cast<std::size_t>(path.size()) + 1;
    std::size_t free = 0;
    while (free < PLACES && !change(places[free], Free, Written))
        ++free;
    if (free == PLACES)
        return;
    const bool fits = size <= PATH_MAX;
    if (fits)
        std::memcpy(places[free].path.data(), path.constData(), size);
    places[free].kind = kind;
    places[free].state = fits ? Kept : Free;
    place = fits ? free : PLACES;
}

RemovalOnTheSpot::~RemovalOnTheSpot() {
    withdraw();
}

bool RemovalOnTheSpot::withdraw() noexcept {
    const std::size_t own = place.exchange(PLACES);
    return own == PLACES || change(places[own], Kept, Free);
}

void RemovalOnTheSpot::removeAll() noexcept {
    for (Place& place : places)
        if (change(place, Kept, Taken) && place.kind == Kind::Folder)
            removeFolder(AT_FDCWD, place.path.data(), 0);
    for (const Place& place : places)
        if (place.state == Taken && place.kind == Kind::File)
            unlink(place.path.data());
}

} // namespace Kestra::Util
