// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Core::CoreManager: where the engine's factories are found.
#pragma once

#include "KestraExport.h"
#include <memory>

namespace Kestra::Proc {
class ICodecFactory;
class IDataVideoFFFactory;
class IEffectFactory;
class IFilterFactory;
class IMuxerFactory;
class ISourceFactory;
} // namespace Kestra::Proc

namespace Kestra::Core {

/// The one global of the engine. The getters are thread-safe; a factory set in place of the engine's own (by tests)
/// must be set while nothing runs, and null puts the engine's own back.
class KESTRA_EXPORT CoreManager {
public:
    static CoreManager& Instance();

    Proc::IMuxerFactory& GetMuxerFactory();
    Proc::ICodecFactory& GetCodecFactory();
    Proc::IFilterFactory& GetFilterFactory();
    Proc::ISourceFactory& GetSourceFactory();
    Proc::IEffectFactory& GetEffectFactory();
    Proc::IDataVideoFFFactory& GetDataVideoFFFactory();

    void SetMuxerFactory(std::shared_ptr<Proc::IMuxerFactory> factory);
    void SetCodecFactory(std::shared_ptr<Proc::ICodecFactory> factory);
    void SetFilterFactory(std::shared_ptr<Proc::IFilterFactory> factory);
    void SetSourceFactory(std::shared_ptr<Proc::ISourceFactory> factory);
    void SetEffectFactory(std::shared_ptr<Proc::IEffectFactory> factory);
    void SetDataVideoFFFactory(std::shared_ptr<Proc::IDataVideoFFFactory> factory);

    CoreManager(const CoreManager&) = delete;
    CoreManager& operator=(const CoreManager&) = delete;

private:
    CoreManager();
    ~CoreManager();
    struct Factories;
    std::unique_ptr<Factories> factories;
};

} // namespace Kestra::Core
