// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/chunks/SoundChunks.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/FF/Encode/AudioEncoderCore.h"
#include "Kestra/FF/Encode/CodecFactory.h"

namespace Kestra::Fakes {
namespace {

class ChunkedCodecs final : public Proc::ICodecFactory {
public:
    explicit ChunkedCodecs(const SoundChunks& chunks)
        : chunks(chunks) {}

    boost::intrusive_ptr<Proc::IEncoder> CreateVideoEncoder(const boost::intrusive_ptr<Proc::IStreamVideo>& stream,
                                                            const Core::Property& properties) override {
        return engine->CreateVideoEncoder(stream, properties);
    }
    boost::intrusive_ptr<Proc::IEncoder> CreateAudioEncoder(const boost::intrusive_ptr<Proc::IStreamAudio>& stream,
                                                            const Core::Property& properties) override {
        return engine->CreateAudioEncoder(stream, chunks.In(properties));
    }

private:
    const SoundChunks chunks;
    const std::shared_ptr<Proc::ICodecFactory> engine = FF::MakeCodecFactory();
};

} // namespace

Core::Property SoundChunks::In(const Core::Property& description) const {
    Core::Property result = description;
    if (samples > 0)
        result.SetChild(FF::AudioEncoderCore::TAG_CHUNK_SAMPLES, std::int64_t{samples});
    if (workers > 0)
        result.SetChild(FF::AudioEncoderCore::TAG_WORKERS, std::int64_t{workers});
    return result;
}

ChunkedSound::ChunkedSound(const SoundChunks& chunks) {
    Core::CoreManager::Instance().SetCodecFactory(std::make_shared<ChunkedCodecs>(chunks));
}

ChunkedSound::~ChunkedSound() {
    Core::CoreManager::Instance().SetCodecFactory(nullptr);
}

} // namespace Kestra::Fakes
