#pragma once

#include "Kestra/Core/ISourceFactory.h"
#include <memory>

namespace Kestra::FF {

class SourceFactory final : public Core::ISourceFactory {
public:
    boost::intrusive_ptr<Proc::IMediaSource> OpenMedia(const ioPath& path,
                                                       const std::atomic<bool>* interrupted = nullptr,
                                                       const Proc::MediaLimits& limits = {}) override;
};

std::shared_ptr<Core::ISourceFactory> MakeSourceFactory();

} // namespace Kestra::FF
