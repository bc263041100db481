// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Core/CoreManager.h"

#include "Kestra/Engine/Backend.h"
#include <mutex>
#include <utility>

namespace Kestra::Core {

namespace {

/// One factory: the backend's, made when it is first asked for, or another that has been set.
template <class Factory>
class FactorySlot {
public:
    using Make = std::shared_ptr<Factory> (Proc::IBackend::*)();

    explicit FactorySlot(Make make)
        : make(make) {}

    Factory& Get() {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!factory)
            factory = (Backend().*make)();
        return *factory;
    }
    void Set(std::shared_ptr<Factory> chosen) {
        const std::lock_guard<std::mutex> lock(mutex);
        factory = std::move(chosen);
    }

private:
    const Make make;
    std::mutex mutex;
    std::shared_ptr<Factory> factory;
};

} // namespace

struct CoreManager::Factories {
    FactorySlot<Proc::IMuxerFactory> muxer{&Proc::IBackend::MakeMuxerFactory};
    FactorySlot<Proc::ICodecFactory> codec{&Proc::IBackend::MakeCodecFactory};
    FactorySlot<Proc::IFilterFactory> filter{&Proc::IBackend::MakeFilterFactory};
    FactorySlot<Proc::ISourceFactory> source{&Proc::IBackend::MakeSourceFactory};
    FactorySlot<Proc::IEffectFactory> effect{&Proc::IBackend::MakeEffectFactory};
    FactorySlot<Proc::IDataVideoFFFactory> dataVideo{&Proc::IBackend::MakeDataVideoFFFactory};
};

CoreManager::CoreManager()
    : factories(std::make_unique<Factories>()) {}

CoreManager::~CoreManager() = default;

// Never destroyed: threads that still wind down while the process exits may ask for a factory.
CoreManager& CoreManager::Instance() {
    static CoreManager* const instance = new CoreManager;
    return *instance;
}

Proc::IMuxerFactory& CoreManager::GetMuxerFactory() {
    return factories->muxer.Get();
}
Proc::ICodecFactory& CoreManager::GetCodecFactory() {
    return factories->codec.Get();
}
Proc::IFilterFactory& CoreManager::GetFilterFactory() {
    return factories->filter.Get();
}
Proc::ISourceFactory& CoreManager::GetSourceFactory() {
    return factories->source.Get();
}
Proc::IEffectFactory& CoreManager::GetEffectFactory() {
    return factories->effect.Get();
}
Proc::IDataVideoFFFactory& CoreManager::GetDataVideoFFFactory() {
    return factories->dataVideo.Get();
}

void CoreManager::SetMuxerFactory(std::shared_ptr<Proc::IMuxerFactory> factory) {
    factories->muxer.Set(std::move(factory));
}

void CoreManager::SetCodecFactory(std::shared_ptr<Proc::ICodecFactory> factory) {
    factories->codec.Set(std::move(factory));
}

void CoreManager::SetFilterFactory(std::shared_ptr<Proc::IFilterFactory> factory) {
    factories->filter.Set(std::move(factory));
}

void CoreManager::SetSourceFactory(std::shared_ptr<Proc::ISourceFactory> factory) {
    factories->source.Set(std::move(factory));
}

void CoreManager::SetEffectFactory(std::shared_ptr<Proc::IEffectFactory> factory) {
    factories->effect.Set(std::move(factory));
}

void CoreManager::SetDataVideoFFFactory(std::shared_ptr<Proc::IDataVideoFFFactory> factory) {
    factories->dataVideo.Set(std::move(factory));
}

} // namespace Kestra::Core
