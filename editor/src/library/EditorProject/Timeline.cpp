#include "EditorProject/Timeline.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Kestra/Proc/ProcException.h"
#include <unordered_map>

namespace Project {
namespace {

using Kestra::Proc::ProcException;
using Kestra::Proc::TranscodingError;

/// How long a picture without a length of its own stands.
constexpr std::int64_t STILL_DURATION = 5 * Kestra::TIME_BASE;

std::int64_t durationOf(const Kestra::Proc::IMediaSource& media) {
    const Kestra::Proc::MediaInfo& info = media.GetInfo();
    if (info.video && info.video->stillPicture && !info.audio)
        return STILL_DURATION;
    if (info.duration <= 0)
        KESTRA_THROW(
            ProcException(TranscodingError::SourceUnreadable,
                          "\"" + media.GetPath().ToUtf8() + "\" cannot be put on the timeline: it has no length"));
    return info.duration;
}

} // namespace

std::shared_ptr<const Timeline> Timeline::open(const std::vector<Kestra::ioPath>& media,
                                               const std::atomic<bool>* interrupted,
                                               const Kestra::Proc::MediaLimits& limits,
                                               const std::function<void(std::size_t index)>& next) {
    if (media.empty())
        KESTRA_THROW(ProcException(TranscodingError::InvalidArgument, "No media file was given to open"));
    auto timeline = std::make_shared<Timeline>();
    std::unordered_map<std::string, boost::intrusive_ptr<Kestra::Proc::IMediaSource>> opened;
    for (const Kestra::ioPath& path : media) {
        boost::intrusive_ptr<Kestra::Proc::IMediaSource>& source = opened[path.ToUtf8()];
        if (next)
            next(timeline->allClips.size());
        if (!source) {
            source = Kestra::Core::CoreManager::Instance().GetSourceFactory().OpenMedia(path, interrupted, limits);
            timeline->allSources.push_back(source);
        }
        timeline->append(source);
    }
    return timeline;
}

void Timeline::append(const boost::intrusive_ptr<Kestra::Proc::IMediaSource>& media) {
    Clip clip;
    clip.path = media->GetPath();
    clip.info = media->GetInfo();
    clip.start = duration();
    clip.duration = durationOf(*media);
    allClips.push_back(std::move(clip));
    sourceOfClip.push_back(media);
}

} // namespace Project
