// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/EngineLog.h"
#include "Kestra/FF/Av/LargestAllocation.h"
#include "Kestra/FF/Av/LibraryVersions.h"
#include "Kestra/FF/Data/DataVideoFFFactory.h"
#include "Kestra/FF/Data/PictureReader.h"
#include "Kestra/FF/Demux/FileCheck.h"
#include "Kestra/FF/Encode/CodecFactory.h"
#include "Kestra/FF/Encode/EncoderQuery.h"
#include "Kestra/FF/Filter/AudioSegmenter.h"
#include "Kestra/FF/Filter/EffectFactory.h"
#include "Kestra/FF/Filter/FilterFactory.h"
#include "Kestra/FF/Mux/MuxerFactory.h"
#include "Kestra/FF/Source/SequenceCheck.h"
#include "Kestra/FF/Source/SourceFactory.h"
#include "Kestra/Proc/IBackend.h"
#include "KestraBuild.h"
#include "KestraFFExport.h"
#include <cstring>

namespace Kestra::FF {
namespace {

class Backend final : public Proc::IBackend {
public:
    std::shared_ptr<Proc::IMuxerFactory> MakeMuxerFactory() override { return FF::MakeMuxerFactory(); }
    std::shared_ptr<Proc::ICodecFactory> MakeCodecFactory() override { return FF::MakeCodecFactory(); }
    std::shared_ptr<Proc::IFilterFactory> MakeFilterFactory() override { return FF::MakeFilterFactory(); }
    std::shared_ptr<Proc::ISourceFactory> MakeSourceFactory() override { return FF::MakeSourceFactory(); }
    std::shared_ptr<Proc::IEffectFactory> MakeEffectFactory() override { return FF::MakeEffectFactory(); }
    std::shared_ptr<Proc::IDataVideoFFFactory> MakeDataVideoFFFactory() override {
        return FF::MakeDataVideoFFFactory();
    }

    Proc::CheckedFile CheckFile(const ioPath& path, const std::atomic<bool>& interrupted) override {
        return FF::CheckFile(path, interrupted);
    }
    Proc::CheckedFile CheckPictures(const ioPath& folder, const Conf::NumberedName& name,
                                    const std::atomic<bool>& interrupted) override {
        return FF::CheckPictures(folder, name, interrupted);
    }
    boost::intrusive_ptr<Proc::IStreamRaw> CreateAudioSegmenter(const boost::intrusive_ptr<Proc::IStreamRaw>& stream,
                                                                std::int64_t start, std::int64_t end) override {
        return FF::CreateAudioSegmenter(stream, start, end);
    }

    Proc::RgbPicture ReadPicture(const Proc::IDataVideo& picture, int width, int height) override {
        return FF::ReadPicture(picture, width, height);
    }

    bool TakesPixelFormat(Conf::CodecID codec, const std::string& pixelFormat) override {
        return FF::TakesPixelFormat(codec, pixelFormat);
    }
    std::string WhyNotOption(Conf::CodecID codec, const std::string& name, const std::string& value,
                             bool exactRate) override {
        return FF::WhyNotOption(codec, name, value, exactRate);
    }
    std::string WhyNotMuxerOption(const std::string& container, const std::string& name,
                                  const std::string& value) override {
        return FF::WhyNotMuxerOption(container, name, value);
    }

    std::vector<Proc::LibraryVersion> GetLibraryVersions() override { return FF::GetLibraryVersions(); }

    void SetLogLevel(Proc::LogLevel level) noexcept override { FF::SetLogLevel(level); }
    void SetLogReceiver(void (*receiver)(const std::string& line)) noexcept override { FF::SetLogReceiver(receiver); }
    void SetLargestAllocation(const Proc::MediaLimits& limits) noexcept override { FF::SetLargestAllocation(limits); }
};

} // namespace
} // namespace Kestra::FF

extern "C" KESTRAFF_EXPORT Kestra::Proc::IBackend* KestraBackendOf(const char* build) {
    static auto& backend = *new Kestra::FF::Backend;
    return std::strcmp(build, KESTRA_BUILD) == 0 ? &backend : nullptr;
}
