// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Engine/Backend.h"

#include "Kestra/Proc/LargestAllocation.h"
#include "Kestra/Proc/LoadEngine.h"
#include "Kestra/Proc/ProcException.h"
#include "KestraBuild.h"
#include <atomic>
#include <dlfcn.h>
#include <mutex>
#include <optional>

namespace Kestra {
namespace {

/// What was set for the process before there was a backend to tell it to.
struct ProcessSettings {
    std::optional<Proc::LogLevel> logLevel;
    void (*logReceiver)(const std::string& line) = nullptr;
    std::optional<Proc::MediaLimits> limits;

    void ApplyTo(Proc::IBackend& backend) const noexcept {
        backend.SetLogReceiver(logReceiver);
        if (logLevel)
            backend.SetLogLevel(*logLevel);
        if (limits)
            backend.SetLargestAllocation(*limits);
    }
};

std::mutex mutex;
ProcessSettings settings;
std::atomic<Proc::IBackend*> loaded{nullptr};

/// The backend lies beside the library that this is a part of.
std::string BackendPath() {
    Dl_info own = {};
    if (dladdr(&loaded, &own) == 0 || !own.dli_fname)
        return KESTRA_BACKEND_FILE;
    const std::string path = own.dli_fname;
    return path.substr(0, path.rfind('/') + 1) + KESTRA_BACKEND_FILE;
}

[[noreturn]] void FailToLoad(const std::string& reason) {
    KESTRA_THROW(
        Proc::ProcException(Proc::TranscodingError::CodecNotFound, "Cannot load the engine's codecs: " + reason));
}

// They may be of another build where an update has put others in their place since this process began.
Proc::IBackend& Load() {
    const std::string path = BackendPath();
    void* const library = dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL);
    void* const function = library ? dlsym(library, "KestraBackendOf") : nullptr;
    if (!function) {
        const char* const reason = dlerror();
        FailToLoad(reason ? reason : path);
    }
    Proc::IBackend* const backend = reinterpret_cast<KestraBackendFunction*>(function)(KESTRA_BUILD);
    if (!backend)
        FailToLoad(path + " is of another build than the rest of the engine; start the program again");
    return *backend;
}

template <class Change>
void ChangeSettings(const Change& change) noexcept {
    const std::lock_guard<std::mutex> lock(mutex);
    change();
    if (Proc::IBackend* const backend = loaded)
        settings.ApplyTo(*backend);
}

} // namespace

Proc::IBackend& Backend() {
    if (Proc::IBackend* const backend = loaded)
        return *backend;
    const std::lock_guard<std::mutex> lock(mutex);
    if (!loaded) {
        Proc::IBackend& backend = Load();
        settings.ApplyTo(backend);
        loaded = &backend;
    }
    return *loaded;
}

void Proc::LoadEngine() {
    Backend();
}

void Proc::SetEngineLogLevel(LogLevel level) noexcept {
    ChangeSettings([level] { settings.logLevel = level; });
}

void Proc::SetEngineLogReceiver(void (*receiver)(const std::string& line)) noexcept {
    ChangeSettings([receiver] { settings.logReceiver = receiver; });
}

void Proc::SetLargestAllocation(const MediaLimits& limits) noexcept {
    ChangeSettings([&limits] { settings.limits = limits; });
}

} // namespace Kestra
