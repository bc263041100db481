// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/Sequence.h"

#include "Kestra/Proc/ProcException.h"
#include "Kestra/Proc/ProcessingError.h"
#include "Render/ListedFile.h"
#include "Timeline/ClipVisit.h"
#include "Timeline/Reader/MediaList.h"
#include <exception>
#include <string>

namespace Render {

using Kestra::Ticks;
using Kestra::Proc::ProcException;
using Kestra::Proc::TranscodingError;

namespace {

/// All that cannot be opened is told at once; what happens to a medium that can be told in no such way, is thrown on.
class UnreadMedia {
public:
    void add(const std::exception_ptr& error) {
        const auto reason = Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(error);
        const bool isUnread = reason.GetCode() == TranscodingError::SourceNotFound ||
                              reason.GetCode() == TranscodingError::SourceUnreadable;
        if (!isUnread)
            std::rethrow_exception(error);
        first = first ? first : error;
        reasons += (reasons.empty() ? "" : "; ") + reason.GetDescription();
        code = count++ == 0 ? reason.GetCode() : code;
    }
    void throwIfAny() const {
        if (count == 1)
            std::rethrow_exception(first);
        if (count > 1)
            KESTRA_THROW(ProcException(code, reasons));
    }

private:
    std::exception_ptr first;
    std::string reasons;
    TranscodingError code = TranscodingError::SourceUnreadable;
    int count = 0;
};

} // namespace

Sequence Sequence::ofFiles(const std::vector<Kestra::ioPath>& files, const std::atomic<bool>* interrupted,
                           const Kestra::Proc::MediaLimits& limits, const Next& next,
                           const Kestra::Proc::TrackChoice& choice) {
    if (files.empty())
        KESTRA_THROW(ProcException(TranscodingError::InvalidArgument, "No media file was given to open"));
    const auto media = std::make_shared<MediaPool>(limits, choice);
    std::vector<Timeline::ListedMedia> list;
    UnreadMedia unread;
    for (std::size_t index = 0; index < files.size(); ++index) {
        if (next)
            next(index);
        try {
            list.push_back(listed(*media->open({{}, Timeline::MediaFile{files[index]}}, interrupted)));
        } catch (const ProcException&) {
            if (interrupted && *interrupted)
                throw;
            unread.add(std::current_exception());
        }
    }
    unread.throwIfAny();
    return {Timeline::documentOf(list), media, {}, {}};
}

Sequence Sequence::of(std::shared_ptr<const Timeline::Document> document, std::shared_ptr<MediaPool> media,
                      const std::atomic<bool>* interrupted) {
    Timeline::visitClips(*document->tracks, [&](const auto&, const auto&, const Timeline::Clip& clip) {
        media->open(clip.media, interrupted);
    });
    return {std::move(document), std::move(media), {}, {}};
}

std::vector<std::shared_ptr<MediaPool>> Sequence::pools() const {
    std::vector<std::shared_ptr<MediaPool>> all{media};
    for (const Sequence& track : furtherSounds)
        all.push_back(track.media);
    return all;
}

} // namespace Render
