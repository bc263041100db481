// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::OtioReader: reads timelines of OpenTimelineIO.
#pragma once

#include "Timeline/Reader/ITimelineReader.h"

namespace Timeline {

/// The JSON form of OpenTimelineIO (.otio), folders of one with its media (.otiod), and archives (.otioz), which it
/// hands on to OtioZipReader. https://opentimelineio.readthedocs.io/en/stable/tutorials/otio-serialized-schema.html
class EDITORTIMELINE_EXPORT OtioReader final : public ITimelineReader {
public:
    bool reads(const Kestra::ioPath& file) const override;
    Reading read(const Kestra::ioPath& file, const ReadingOptions& options) const override;
};

} // namespace Timeline
