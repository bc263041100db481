// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::OtioZipReader: reads timelines that are packed together with their media.
#pragma once

#include "Timeline/Reader/ITimelineReader.h"

namespace Timeline {

/// Zip archives of OpenTimelineIO (.otioz): content.otio, version.txt and the folder media. What the timeline refers to
/// is unpacked into a private folder below the system's one for temporary files, which goes with the document
/// (Document::resources). Entries that are not to be trusted are errors with their names.
class EDITORTIMELINE_EXPORT OtioZipReader final : public ITimelineReader {
public:
    bool reads(const Kestra::ioPath& file) const override;
    Reading read(const Kestra::ioPath& file, const ReadingOptions& options) const override;
};

} // namespace Timeline
