// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::ITimelineReader: makes documents of files.
#pragma once

#include "EditorTimelineExport.h"
#include "Kestra/Base/ioPath.h"
#include "Timeline/Document.h"
#include "Timeline/Finding.h"
#include <atomic>
#include <functional>

namespace Timeline {

/// A value.
struct ReadingOptions {
    Kestra::ioPath mediaRoot; ///< where media are looked for that are not in their place; empty: nowhere
    std::string timeline;     ///< which one of a file that holds several; empty: the only one
    /// A newer version of something known is read as far as it is known; otherwise it is an error.
    bool lenient = false;
    /// How long media last whose length the timeline does not tell, and nothing where they cannot be read. Called on
    /// the reading thread. Empty: unknown.
    std::function<std::optional<Kestra::Ticks>(const MediaReference&, Track::Kind)> lengthOf{};
    /// Borrowed for the call, unless null: ends what takes long when it turns true. What is lacking then is an error.
    const std::atomic<bool>* interrupted = nullptr;
};

/// A value.
struct EDITORTIMELINE_EXPORT Reading {
    std::shared_ptr<const Document> document; ///< null where the errors leave nothing of it
    std::vector<Finding> findings;            ///< in the order of the file
    /// Every file and every sequence of pictures that it names and that is there, shown or not: nothing to write over.
    /// Of sequences only the folder and the names of the files are told.
    std::vector<MediaTarget> named{};

    /// Whether something stands in the way of rendering it.
    bool has(Finding::Kind kind) const;
};

/// No state between calls: any thread, one call at a time on each object.
class EDITORTIMELINE_EXPORT ITimelineReader {
public:
    virtual ~ITimelineReader();

    /// Whether a file of that name is one for this reader; nothing is opened.
    virtual bool reads(const Kestra::ioPath& file) const = 0;
    /// Everything that is wrong with the file is a finding. Throws std::bad_alloc only.
    virtual Reading read(const Kestra::ioPath& file, const ReadingOptions& options) const = 0;
};

} // namespace Timeline
