// Project::Span: the run of an export stream that one clip fills.
#pragma once

#include "EditorProject/ExportWindow.h"
#include "EditorProject/Timeline.h"
#include "EditorProjectExport.h"
#include <cstddef>
#include <vector>

namespace Project {

/// Index is FrameIndex in a stream of pictures, SampleIndex in one of sound.
template <class Index>
struct Span {
    std::size_t clip = 0;
    Index first; ///< in the stream
    Index count; ///< always above 0
    Index skip;  ///< how much of the clip lies before

    Index end() const { return first + count; }
};
using PictureSpan = Span<Kestra::FrameIndex>;
using PictureSpans = std::vector<PictureSpan>;
using SoundSpan = Span<Kestra::SampleIndex>;
using SoundSpans = std::vector<SoundSpan>;

/// Spans fill a stream without gap or overlap. A clip begins on the frame nearest to its start, and so does its sound:
/// each clip's picture and sound are in step to the sample, and since every clip's start is rounded by itself, no drift
/// builds up. Sound of a clip without picture, or of an export without pictures, begins at the exact start.
/// The first needs a window with pictures.
EDITORPROJECT_EXPORT PictureSpans pictureSpans(const Timeline& timeline, const ExportWindow& window);
EDITORPROJECT_EXPORT SoundSpans soundSpans(const Timeline& timeline, const ExportWindow& window,
                                           const Kestra::SampleGrid& grid);

/// The number of each span's clip.
template <class Index>
std::vector<std::size_t> clipsOf(const std::vector<Span<Index>>& spans) {
    std::vector<std::size_t> clips;
    for (const Span<Index>& span : spans)
        clips.push_back(span.clip);
    return clips;
}

/// The span with the given frame or sample, the last one for what lies behind.
EDITORPROJECT_EXPORT const PictureSpan& spanAt(const PictureSpans& spans, Kestra::FrameIndex place);
EDITORPROJECT_EXPORT const SoundSpan& spanAt(const SoundSpans& spans, Kestra::SampleIndex place);

} // namespace Project
