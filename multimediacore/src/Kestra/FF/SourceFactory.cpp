#include "Kestra/FF/SourceFactory.h"

#include "Kestra/FF/MediaSource.h"

namespace Kestra::FF {

boost::intrusive_ptr<Proc::IMediaSource> SourceFactory::OpenMedia(const ioPath& path,
                                                                  const std::atomic<bool>* interrupted) {
    return new MediaSource(path, interrupted);
}

std::shared_ptr<Core::ISourceFactory> MakeSourceFactory() {
    return std::make_shared<SourceFactory>();
}

} // namespace Kestra::FF
