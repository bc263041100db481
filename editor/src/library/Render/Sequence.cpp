#include "Render/Sequence.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/ProcException.h"
#include "Timeline/ClipVisit.h"
#include "Timeline/Reader/MediaList.h"

namespace Render {

using Kestra::Ticks;
using Kestra::Proc::ProcException;
using Kestra::Proc::TranscodingError;

namespace {

/// How long a picture without a length of its own stands.
constexpr Ticks STILL_DURATION{5 * Kestra::TIME_BASE};

Timeline::ListedMedia listed(const Kestra::Proc::IMediaSource& media) {
    const Kestra::Proc::MediaInfo& info = media.GetInfo();
    Timeline::ListedMedia entry{media.GetPath(), Ticks(info.duration), info.video.has_value(), info.audio.has_value()};
    if (info.video && info.video->stillPicture && !info.audio)
        entry.duration = STILL_DURATION;
    if (entry.duration <= Ticks(0))
        KESTRA_THROW(
            ProcException(TranscodingError::SourceUnreadable,
                          "\"" + media.GetPath().ToUtf8() + "\" cannot be put on the timeline: it has no length"));
    return entry;
}

} // namespace

Sequence Sequence::ofFiles(const std::vector<Kestra::ioPath>& files, const std::atomic<bool>* interrupted,
                           const Kestra::Proc::MediaLimits& limits, const Next& next) {
    if (files.empty())
        KESTRA_THROW(ProcException(TranscodingError::InvalidArgument, "No media file was given to open"));
    const auto media = std::make_shared<MediaPool>(limits);
    std::vector<Timeline::ListedMedia> list;
    for (const Kestra::ioPath& file : files) {
        if (next)
            next(list.size());
        list.push_back(listed(*media->open({{}, Timeline::MediaFile{file}}, interrupted)));
    }
    return {Timeline::documentOf(list), media, {}};
}

Sequence Sequence::of(std::shared_ptr<const Timeline::Document> document, std::shared_ptr<MediaPool> media,
                      const std::atomic<bool>* interrupted) {
    Timeline::visitClips(*document->tracks, [&](const auto&, const auto&, const Timeline::Clip& clip) {
        media->open(clip.media, interrupted);
    });
    return {std::move(document), std::move(media), {}};
}

std::string describe(const Sequence& sequence) {
    std::size_t clips = 0;
    const std::string* first = nullptr;
    Timeline::visitClips(*sequence.document->tracks, [&](const auto&, const Timeline::Item& item, const auto&) {
        first = first ? first : &item.name;
        ++clips;
    });
    return std::to_string(clips) + " clips" + (first ? " from \"" + *first + "\" on" : "");
}

} // namespace Render
