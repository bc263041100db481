// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::IBackend: all that the engine has done by the codec libraries.
#pragma once

#include "Kestra/Conf/CodecID.h"
#include "Kestra/Proc/EngineLog.h"
#include "Kestra/Proc/FileCheck.h"
#include "Kestra/Proc/IStreamRaw.h"
#include "Kestra/Proc/LibraryVersions.h"
#include "Kestra/Proc/MediaLimits.h"
#include "Kestra/Proc/PictureReading.h"
#include <memory>

namespace Kestra::Proc {

class ICodecFactory;
class IDataVideoFFFactory;
class IEffectFactory;
class IFilterFactory;
class IMuxerFactory;
class ISourceFactory;

/// One for the process, in a library of its own: a program that only lists or refuses does not pay for codecs. Each
/// call does what the function or the getter of the same name promises. Thread-safe.
class IBackend {
public:
    virtual ~IBackend() = default;

    virtual std::shared_ptr<IMuxerFactory> MakeMuxerFactory() = 0;
    virtual std::shared_ptr<ICodecFactory> MakeCodecFactory() = 0;
    virtual std::shared_ptr<IFilterFactory> MakeFilterFactory() = 0;
    virtual std::shared_ptr<ISourceFactory> MakeSourceFactory() = 0;
    virtual std::shared_ptr<IEffectFactory> MakeEffectFactory() = 0;
    virtual std::shared_ptr<IDataVideoFFFactory> MakeDataVideoFFFactory() = 0;

    virtual CheckedFile CheckFile(const ioPath& path, const std::atomic<bool>& interrupted) = 0;
    virtual CheckedFile CheckPictures(const ioPath& folder, const Conf::NumberedName& name,
                                      const std::atomic<bool>& interrupted) = 0;
    virtual boost::intrusive_ptr<IStreamRaw> CreateAudioSegmenter(const boost::intrusive_ptr<IStreamRaw>& stream,
                                                                  std::int64_t start, std::int64_t end) = 0;

    virtual RgbPicture ReadPicture(const IDataVideo& picture, int width, int height) = 0;

    virtual bool TakesPixelFormat(Conf::CodecID codec, const std::string& pixelFormat) = 0;
    virtual std::string WhyNotOption(Conf::CodecID codec, const std::string& name, const std::string& value,
                                     bool exactRate) = 0;
    virtual std::string WhyNotMuxerOption(const std::string& container, const std::string& name,
                                          const std::string& value) = 0;

    virtual std::vector<LibraryVersion> GetLibraryVersions() = 0;

    virtual void SetLogLevel(LogLevel level) noexcept = 0;
    virtual void SetLogReceiver(void (*receiver)(const std::string& line)) noexcept = 0;
    virtual void SetLargestAllocation(const MediaLimits& limits) noexcept = 0;
};

} // namespace Kestra::Proc

/// The one symbol of that library, KestraBackendOf; the object lives as long as the process. Null where the caller's
/// KESTRA_BUILD is not the library's own: then neither may use what the other's headers declare.
extern "C" {
using KestraBackendFunction = Kestra::Proc::IBackend*(const char* build);
}
