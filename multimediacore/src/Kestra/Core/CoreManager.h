// Kestra::Core::CoreManager: where the engine's factories are found.
#pragma once

#include "Kestra/Core/ICodecFactory.h"
#include "Kestra/Core/IDataVideoFFFactory.h"
#include "Kestra/Core/IEffectFactory.h"
#include "Kestra/Core/IFilterFactory.h"
#include "Kestra/Core/IMuxerFactory.h"
#include "Kestra/Core/ISourceFactory.h"
#include <memory>

namespace Kestra::Core {

/// The one global of the engine. The getters are thread-safe; a factory set in place of the engine's own (by tests)
/// must be set while nothing runs, and null puts the engine's own back.
class KESTRA_EXPORT CoreManager {
public:
    static CoreManager& Instance();

    IMuxerFactory& GetMuxerFactory();
    ICodecFactory& GetCodecFactory();
    IFilterFactory& GetFilterFactory();
    ISourceFactory& GetSourceFactory();
    IEffectFactory& GetEffectFactory();
    IDataVideoFFFactory& GetDataVideoFFFactory();

    void SetMuxerFactory(std::shared_ptr<IMuxerFactory> factory);
    void SetCodecFactory(std::shared_ptr<ICodecFactory> factory);
    void SetFilterFactory(std::shared_ptr<IFilterFactory> factory);
    void SetSourceFactory(std::shared_ptr<ISourceFactory> factory);
    void SetEffectFactory(std::shared_ptr<IEffectFactory> factory);
    void SetDataVideoFFFactory(std::shared_ptr<IDataVideoFFFactory> factory);

    CoreManager(const CoreManager&) = delete;
    CoreManager& operator=(const CoreManager&) = delete;

private:
    CoreManager();
    ~CoreManager();
    struct Factories;
    std::unique_ptr<Factories> factories;
};

} // namespace Kestra::Core
