// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/counting/CountedEngine.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Data/DataVideoFFFactory.h"
#include "Kestra/FF/Encode/CodecFactory.h"
#include "Kestra/FF/Mux/MuxerFactory.h"
#include "fakes/counting/CountedFilters.h"
#include "fakes/counting/CountedMedia.h"
#include "fakes/counting/CountedOutput.h"

namespace Kestra::Fakes {
namespace {

class CountedCodecs final : public Proc::ICodecFactory {
public:
    CountedCodecs(Counter counter, const SoundChunks& chunks)
        : counter(std::move(counter))
        , chunks(chunks) {}

    boost::intrusive_ptr<Proc::IEncoder> CreateVideoEncoder(const boost::intrusive_ptr<Proc::IStreamVideo>& stream,
                                                            const Core::Property& properties) override {
        counter->Call("CodecFactory.CreateVideoEncoder");
        return new CountedEncoder(engine->CreateVideoEncoder(stream, properties), counter, "VideoEncoder");
    }
    boost::intrusive_ptr<Proc::IEncoder> CreateAudioEncoder(const boost::intrusive_ptr<Proc::IStreamAudio>& stream,
                                                            const Core::Property& properties) override {
        counter->Call("CodecFactory.CreateAudioEncoder");
        return new CountedEncoder(engine->CreateAudioEncoder(stream, chunks.In(properties)), counter, "AudioEncoder");
    }

private:
    const Counter counter;
    const SoundChunks chunks;
    const std::shared_ptr<Proc::ICodecFactory> engine = FF::MakeCodecFactory();
};

class CountedMuxers final : public Proc::IMuxerFactory {
public:
    explicit CountedMuxers(Counter counter)
        : counter(std::move(counter)) {}

    boost::intrusive_ptr<Proc::IMuxer> CreateMuxer(const boost::intrusive_ptr<Conf::IFormatFile>& format,
                                                   const boost::intrusive_ptr<Core::IDataOutput>& output) override {
        counter->Call("MuxerFactory.CreateMuxer");
        return new CountedMuxer(engine->CreateMuxer(format, new CountedDataOutput(output, counter)), counter);
    }

private:
    const Counter counter;
    const std::shared_ptr<Proc::IMuxerFactory> engine = FF::MakeMuxerFactory();
};

class CountedPictures final : public Proc::IDataVideoFFFactory {
public:
    explicit CountedPictures(Counter counter)
        : counter(std::move(counter)) {}

    boost::intrusive_ptr<Proc::IDataVideo> CreateDataVideo(const Conf::FrameInfo& frame, Conf::PixelFormat format,
                                                           const Writer& write) override {
        counter->Call("DataVideoFactory.CreateDataVideo");
        return engine->CreateDataVideo(frame, format, write);
    }

private:
    const Counter counter;
    const std::shared_ptr<Proc::IDataVideoFFFactory> engine = FF::MakeDataVideoFFFactory();
};

} // namespace

CountedEngine::CountedEngine(const std::shared_ptr<CallCounter>& counter, const SoundChunks& chunks)
    : chunkCalls([counter] { counter->Call("Chunk.Frame"); }) {
    Core::CoreManager& manager = Core::CoreManager::Instance();
    manager.SetCodecFactory(std::make_shared<CountedCodecs>(counter, chunks));
    manager.SetMuxerFactory(std::make_shared<CountedMuxers>(counter));
    manager.SetDataVideoFFFactory(std::make_shared<CountedPictures>(counter));
    manager.SetFilterFactory(std::make_shared<CountedFilters>(counter));
    manager.SetEffectFactory(std::make_shared<CountedEffects>(counter));
    manager.SetSourceFactory(std::make_shared<CountedSources>(counter));
}

CountedEngine::~CountedEngine() {
    Core::CoreManager& manager = Core::CoreManager::Instance();
    manager.SetCodecFactory(nullptr);
    manager.SetMuxerFactory(nullptr);
    manager.SetDataVideoFFFactory(nullptr);
    manager.SetFilterFactory(nullptr);
    manager.SetEffectFactory(nullptr);
    manager.SetSourceFactory(nullptr);
}

} // namespace Kestra::Fakes
