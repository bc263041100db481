#pragma once

#include "Kestra/Proc/IMediaSource.h"
#include "Kestra/Proc/MediaLimits.h"
#include <atomic>

namespace Kestra::Proc {

class KESTRA_EXPORT ISourceFactory {
public:
    virtual ~ISourceFactory();
    /// Opens a media file and reads what it holds. Throws ProcException: SourceNotFound, SourceUnreadable (a folder,
    /// empty, not media, neither picture nor sound), each naming the path and the reason. Ends early, with
    /// SourceUnreadable, when `interrupted` turns true: any thread or signal handler may set it. It is borrowed for
    /// the call; null for an opening that is never interrupted. What the file claims beyond `limits`, here or while it
    /// is read, makes it unreadable.
    virtual boost::intrusive_ptr<IMediaSource>
    OpenMedia(const ioPath& path, const std::atomic<bool>* interrupted = nullptr, const MediaLimits& limits = {}) = 0;
};

} // namespace Kestra::Proc
