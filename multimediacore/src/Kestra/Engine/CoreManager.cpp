#include "Kestra/Core/CoreManager.h"

#include "Kestra/FF/Data/DataVideoFFFactory.h"
#include "Kestra/FF/Encode/CodecFactory.h"
#include "Kestra/FF/Filter/EffectFactory.h"
#include "Kestra/FF/Filter/FilterFactory.h"
#include "Kestra/FF/Mux/MuxerFactory.h"
#include "Kestra/FF/Source/SourceFactory.h"
#include <utility>

namespace Kestra::Core {

struct CoreManager::Factories {
    std::shared_ptr<Proc::IMuxerFactory> muxer = FF::MakeMuxerFactory();
    std::shared_ptr<Proc::ICodecFactory> codec = FF::MakeCodecFactory();
    std::shared_ptr<Proc::IFilterFactory> filter = FF::MakeFilterFactory();
    std::shared_ptr<Proc::ISourceFactory> source = FF::MakeSourceFactory();
    std::shared_ptr<Proc::IEffectFactory> effect = FF::MakeEffectFactory();
    std::shared_ptr<Proc::IDataVideoFFFactory> dataVideo = FF::MakeDataVideoFFFactory();
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
    return *factories->muxer;
}
Proc::ICodecFactory& CoreManager::GetCodecFactory() {
    return *factories->codec;
}
Proc::IFilterFactory& CoreManager::GetFilterFactory() {
    return *factories->filter;
}
Proc::ISourceFactory& CoreManager::GetSourceFactory() {
    return *factories->source;
}
Proc::IEffectFactory& CoreManager::GetEffectFactory() {
    return *factories->effect;
}
Proc::IDataVideoFFFactory& CoreManager::GetDataVideoFFFactory() {
    return *factories->dataVideo;
}

void CoreManager::SetMuxerFactory(std::shared_ptr<Proc::IMuxerFactory> factory) {
    factories->muxer = factory ? std::move(factory) : FF::MakeMuxerFactory();
}

void CoreManager::SetCodecFactory(std::shared_ptr<Proc::ICodecFactory> factory) {
    factories->codec = factory ? std::move(factory) : FF::MakeCodecFactory();
}

void CoreManager::SetFilterFactory(std::shared_ptr<Proc::IFilterFactory> factory) {
    factories->filter = factory ? std::move(factory) : FF::MakeFilterFactory();
}

void CoreManager::SetSourceFactory(std::shared_ptr<Proc::ISourceFactory> factory) {
    factories->source = factory ? std::move(factory) : FF::MakeSourceFactory();
}

void CoreManager::SetEffectFactory(std::shared_ptr<Proc::IEffectFactory> factory) {
    factories->effect = factory ? std::move(factory) : FF::MakeEffectFactory();
}

void CoreManager::SetDataVideoFFFactory(std::shared_ptr<Proc::IDataVideoFFFactory> factory) {
    factories->dataVideo = factory ? std::move(factory) : FF::MakeDataVideoFFFactory();
}

} // namespace Kestra::Core
