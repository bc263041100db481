// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/events/FakeEngine.h"

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ICodecFactory.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "Kestra/Proc/IStreamProcessor.h"
#include "fakes/kestra/FakeEncoder.h"
#include "fakes/kestra/FakeMuxer.h"
#include <chrono>
#include <ctime>

namespace Sweep {
namespace {

class ScriptedProcessor;

FakeEngine* engine = nullptr;
World* currentWorld = nullptr;
ScriptedProcessor* processor = nullptr;
int processorsMade = 0;

class ScriptedProcessor final : public Kestra::Proc::IStreamProcessor, public Kestra::RefCountImpl {
public:
    explicit ScriptedProcessor(World& user)
        : world(user)
        , plan(user.nextPlan())
        , number(++processorsMade) {
        processor = this;
    }
    ~ScriptedProcessor() override {
        world.note("release " + std::to_string(number));
        tell(plan.onRelease);
        if (processor == this)
            processor = nullptr;
    }

    void SetEventsReceiver(Kestra::Proc::IProcessingEvents* events) override {
        world.call(Call::SetReceiver);
        receiver = events;
    }
    void Initialize() override { world.call(Call::Initialize); }
    void Start() override {
        world.call(Call::Start);
        tell(plan.onStart);
    }
    void Stop() override {
        world.note("stop");
        tell(plan.onStop);
    }
    void Discard() override { world.note("discard"); }

    void tell(const EngineEvent& event) {
        if (!receiver)
            return;
        switch (event.kind) {
        case EngineEvent::Started:
            return receiver->onStarted();
        case EngineEvent::Progress:
            return receiver->onProgress(event.percent, event.position, event.duration, event.elapsedSeconds,
                                        event.remainingSeconds);
        case EngineEvent::Error:
            return receiver->onError(fault("the engine", event.odd));
        case EngineEvent::Paused:
            return receiver->onPaused();
        case EngineEvent::Resumed:
            return receiver->onResumed();
        case EngineEvent::Finished:
            return receiver->onFinished();
        }
    }

private:
    void tell(const EngineEvents& events) {
        for (const EngineEvent& event : events)
            tell(event);
    }

    World& world;
    const ProcessorPlan plan;
    const int number;
    Kestra::Proc::IProcessingEvents* receiver = nullptr;
};

class Codecs final : public Kestra::Proc::ICodecFactory {
public:
    boost::intrusive_ptr<Kestra::Proc::IEncoder>
    CreateVideoEncoder(const boost::intrusive_ptr<Kestra::Proc::IStreamVideo>&,
                       const Kestra::Core::Property&) override {
        return engine->encoder(Call::Video);
    }
    boost::intrusive_ptr<Kestra::Proc::IEncoder>
    CreateAudioEncoder(const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>&,
                       const Kestra::Core::Property&) override {
        return engine->encoder(Call::Audio);
    }
};

class Muxers final : public Kestra::Proc::IMuxerFactory {
public:
    boost::intrusive_ptr<Kestra::Proc::IMuxer>
    CreateMuxer(const boost::intrusive_ptr<Kestra::Conf::IFormatFile>&,
                const boost::intrusive_ptr<Kestra::Core::IDataOutput>&) override {
        return engine->muxer();
    }
};

} // namespace

FakeEngine::FakeEngine(World& user)
    : world(user) {
    engine = this;
    currentWorld = &user;
    processorsMade = 0;
    Kestra::Core::CoreManager::Instance().SetCodecFactory(std::make_shared<Codecs>());
    Kestra::Core::CoreManager::Instance().SetMuxerFactory(std::make_shared<Muxers>());
}

FakeEngine::~FakeEngine() {
    Kestra::Core::CoreManager::Instance().SetCodecFactory(nullptr);
    Kestra::Core::CoreManager::Instance().SetMuxerFactory(nullptr);
    engine = nullptr;
    currentWorld = nullptr;
}

void FakeEngine::tell(const EngineEvent& event) {
    if (processor)
        processor->tell(event);
}

boost::intrusive_ptr<Kestra::Proc::IEncoder> FakeEngine::encoder(Call which) {
    world.call(which);
    return new Kestra::Fakes::FakeEncoder;
}

boost::intrusive_ptr<Kestra::Proc::IMuxer> FakeEngine::muxer() {
    world.call(Call::Muxer);
    return new Kestra::Fakes::FakeMuxer;
}

} // namespace Sweep

/// In place of the engine's: the definition in the program comes first.
boost::intrusive_ptr<Kestra::Proc::IStreamProcessor>
Kestra::Proc::CreateStreamProcessor(const std::vector<boost::intrusive_ptr<IStream>>& streams,
                                    const boost::intrusive_ptr<IMuxer>& muxer) {
    Sweep::currentWorld->note(std::to_string(streams.size()) + " streams" + (muxer ? " and a muxer" : ""));
    Sweep::currentWorld->call(Sweep::Call::Make);
    return new Sweep::ScriptedProcessor(*Sweep::currentWorld);
}

/// In place of the standard library's, for the same reason: a world's time while there is one.
std::chrono::steady_clock::time_point std::chrono::steady_clock::now() noexcept {
    if (Sweep::currentWorld)
        return time_point(nanoseconds(Sweep::currentWorld->now()));
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time_point(seconds(time.tv_sec) + nanoseconds(time.tv_nsec));
}
