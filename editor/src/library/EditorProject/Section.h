// Project::Section: the run of an export stream that one clip fills.
#pragma once

#include "EditorProject/ExportWindow.h"
#include "EditorProject/Timeline.h"
#include "EditorProjectExport.h"
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Project {

/// In frames of a video stream or samples of an audio stream.
struct Section {
    std::size_t clip = 0;
    std::int64_t first = 0; ///< in the stream
    std::int64_t count = 0; ///< always positive
    std::int64_t skip = 0;  ///< how much of the clip lies before

    std::int64_t end() const { return first + count; }
};

/// Sections fill a stream without gap or overlap. A clip begins on the frame nearest to its start, and so does its
/// sound: each clip's picture and sound are in step to the sample, and since every clip's start is rounded by itself,
/// no drift builds up. Sound of a clip without picture, or of an export without pictures, begins at the exact start.
EDITORPROJECT_EXPORT std::vector<Section> pictureSections(const Timeline& timeline, const ExportWindow& window);
EDITORPROJECT_EXPORT std::vector<Section> soundSections(const Timeline& timeline, const ExportWindow& window,
                                                        int sampleRate);

/// The section with the given frame or sample, the last one for what lies behind.
EDITORPROJECT_EXPORT const Section& sectionAt(const std::vector<Section>& sections, std::int64_t position);

} // namespace Project
