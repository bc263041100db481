// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/FolderInUse.h"

#include <algorithm>
#include <condition_variable>
#include <cstdlib>
#include <list>
#include <mutex>
#include <utility>

namespace Kestra {
namespace {

struct Removal {
    std::string folder;
    std::function<void()> remove;
};

/// Lists, since entries go from one to the other without memory being asked for.
struct Registry {
    std::mutex mutex;
    std::condition_variable changed;
    std::list<const std::string*> uses;
    std::list<Removal> waiting;
    std::list<Removal> underWay;
};

// Never destroyed: threads that were left may come out of a foreign call while the process ends.
Registry& TheRegistry() {
    static Registry& registry = *new Registry;
    return registry;
}

bool LiesIn(const std::string& path, const std::string& folder) {
    return path.size() > folder.size() && path[folder.size()] == '/' && path.compare(0, folder.size(), folder) == 0;
}

bool IsUsed(const Registry& registry, const Removal& removal) {
    return std::any_of(registry.uses.begin(), registry.uses.end(),
                       [&removal](const std::string* path) { return LiesIn(*path, removal.folder); });
}

bool IsBeingRemoved(const Registry& registry, const std::string& path) {
    return std::any_of(registry.underWay.begin(), registry.underWay.end(),
                       [&path](const Removal& removal) { return LiesIn(path, removal.folder); });
}

/// Without the lock while it removes: the folder may stand where nothing answers.
void Run(std::list<Removal>& from, std::list<Removal>::iterator removal, std::unique_lock<std::mutex>& lock) {
    Registry& registry = TheRegistry();
    registry.underWay.splice(registry.underWay.end(), from, removal);
    lock.unlock();
    removal->remove();
    lock.lock();
    registry.underWay.erase(removal);
    registry.changed.notify_all();
}

/// A use that hangs is not waited for.
void RunAllAtExit() {
    Registry& registry = TheRegistry();
    std::unique_lock<std::mutex> lock(registry.mutex);
    while (!registry.waiting.empty())
        Run(registry.waiting, registry.waiting.begin(), lock);
}

} // namespace

FolderInUse::FolderInUse(std::string givenPath)
    : path(std::move(givenPath)) {
    Registry& registry = TheRegistry();
    std::unique_lock<std::mutex> lock(registry.mutex);
    registry.changed.wait(lock, [&] { return !IsBeingRemoved(registry, path); });
    registry.uses.push_back(&path);
}

FolderInUse::~FolderInUse() {
    Registry& registry = TheRegistry();
    std::unique_lock<std::mutex> lock(registry.mutex);
    registry.uses.remove(&path);
    const auto next = [&registry] {
        return std::find_if(registry.waiting.begin(), registry.waiting.end(),
                            [&registry](const Removal& removal) { return !IsUsed(registry, removal); });
    };
    for (auto removal = next(); removal != registry.waiting.end(); removal = next())
        Run(registry.waiting, removal, lock);
}

void FolderInUse::Remove(std::string folder, std::function<void()> remove) {
    std::list<Removal> removals;
    removals.push_back({std::move(folder), std::move(remove)});
    Registry& registry = TheRegistry();
    std::unique_lock<std::mutex> lock(registry.mutex);
    if (!IsUsed(registry, removals.front()))
        return Run(removals, removals.begin(), lock);
    static const int registered = std::atexit(&RunAllAtExit);
    static_cast<void>(registered);
    registry.waiting.splice(registry.waiting.end(), removals);
}

} // namespace Kestra
