#include "Kestra/FF/SourceFactory.h"

#include "Kestra/FF/MediaSource.h"

namespace Kestra::FF {

boost::intrusive_ptr<Proc::IMediaSource> SourceFactory::OpenMedia(const ioPath& path) {
    return new MediaSource(path);
}

std::shared_ptr<Core::ISourceFactory> MakeSourceFactory() {
    return std::make_shared<SourceFactory>();
}

} // namespace Kestra::FF
