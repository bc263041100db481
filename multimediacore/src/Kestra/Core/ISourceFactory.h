#pragma once

#include "Kestra/Proc/IMediaSource.h"

namespace Kestra::Core {

class KESTRA_EXPORT ISourceFactory {
public:
    virtual ~ISourceFactory();
    /// Opens a media file and reads what it holds. Throws ProcException: SourceNotFound, SourceUnreadable (a folder,
    /// empty, not media, neither picture nor sound), each naming the path and the reason.
    virtual boost::intrusive_ptr<Proc::IMediaSource> OpenMedia(const ioPath& path) = 0;
};

} // namespace Kestra::Core
