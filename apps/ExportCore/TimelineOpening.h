// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::TimelineOpening: reads a timeline and looks at its media.
#pragma once

#include "ExportCoreExport.h"
#include "Kestra/Proc/MediaLimits.h"
#include "Render/Sequence.h"
#include "Timeline/Reader/ITimelineReader.h"
#include <atomic>
#include <memory>
#include <string>
#include <vector>

namespace ExportCore {

/// A value: how timelines are read.
struct TimelineOptions {
    enum class Missing {
        Refused,
        Black, ///< media that cannot be opened are black and silent
    };

    std::string mediaRoot; ///< where media are looked for that are not in their place; empty: nowhere
    std::string timeline;  ///< which of several in a file; empty: the only one
    bool lenient = false;  ///< newer versions of what is known are read as far as they are known
    Missing missing = Missing::Refused;
    Render::SoundOptions sound{};
};

/// A value: a timeline as it was read, what was found in it and in its media, and these. Any thread makes it.
struct EXPORTCORE_EXPORT TimelineOpening {
    /// Whether a file of that name is a timeline; nothing is opened.
    static bool isTimeline(const std::string& path);
    /// `interrupted`, borrowed unless null, makes it throw early when it turns true.
    static TimelineOpening read(const std::string& path, const TimelineOptions& options,
                                const Kestra::Proc::MediaLimits& limits,
                                const std::atomic<bool>* interrupted = nullptr);
    /// What the timeline at the path names and is there (see Timeline::Reading::named), however much else is wrong with
    /// it; nothing where it cannot be read, or is an archive, whose media are unpacked elsewhere. Opens no medium.
    static std::vector<Timeline::MediaTarget> mediaNamedIn(const std::string& path, const TimelineOptions& options);

    /// Whether it can be rendered under the options that it was read with.
    bool isFit() const;
    /// Of one that is fit. Throws Kestra::Proc::ProcException for media that vanished meanwhile.
    Render::Sequence sequence(const std::atomic<bool>* interrupted = nullptr) const;

    Timeline::Reading reading;
    std::shared_ptr<Render::MediaPool> media;
    TimelineOptions options;
};

} // namespace ExportCore
