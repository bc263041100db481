// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Core/CoreManager.h"
#include "fakes/kestra/FakeFactories.h"
#include "fakes/kestra/Script.h"
#include <memory>

namespace Kestra::Fakes {

/// While it lives the engine is given fakes for encoders and muxers, all of a kind with one script. Whoever holds it
/// lets go of the engine before.
class FakeEngineParts {
public:
    FakeEngineParts() {
        codecs->UseEncoderScript(encoders);
        muxers->UseMuxerScript(muxing);
        Core::CoreManager::Instance().SetCodecFactory(codecs);
        Core::CoreManager::Instance().SetMuxerFactory(muxers);
    }
    ~FakeEngineParts() {
        Core::CoreManager::Instance().SetMuxerFactory(nullptr);
        Core::CoreManager::Instance().SetCodecFactory(nullptr);
    }
    FakeEngineParts(const FakeEngineParts&) = delete;
    FakeEngineParts& operator=(const FakeEngineParts&) = delete;

    const std::shared_ptr<Script> encoders = std::make_shared<Script>();
    const std::shared_ptr<Script> muxing = std::make_shared<Script>();
    const std::shared_ptr<FakeCodecFactory> codecs = std::make_shared<FakeCodecFactory>();
    const std::shared_ptr<FakeMuxerFactory> muxers = std::make_shared<FakeMuxerFactory>();
};

} // namespace Kestra::Fakes
