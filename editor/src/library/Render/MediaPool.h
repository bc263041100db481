// SPDX-License-Identifier: GPL-3.0-or-later
// Render::MediaPool: the media of a timeline, opened.
#pragma once

#include "EditorRenderExport.h"
#include "Kestra/Proc/IMediaSource.h"
#include "Kestra/Proc/MediaLimits.h"
#include "Kestra/Proc/TrackChoice.h"
#include "Timeline/Item.h"
#include <atomic>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Render {

/// Opens each medium when it is first asked for, and remembers what it holds; no file stays open. Thread-safe: nobody
/// waits for a medium that another thread is opening, whoever asks for the same one opens it as well, and the first to
/// come through counts.
class EDITORRENDER_EXPORT MediaPool {
public:
    using Source = boost::intrusive_ptr<Kestra::Proc::IMediaSource>;

    /// `choice` is that of every file.
    explicit MediaPool(const Kestra::Proc::MediaLimits& limits = {}, Kestra::Proc::TrackChoice choice = {});

    /// The opened file or image sequence behind a reference; null for what is made, not read, and for what is missing.
    /// Throws Kestra::Proc::ProcException for what cannot be opened, also when `interrupted`, unless null, turns true
    /// meanwhile.
    Source open(const Timeline::MediaReference& media, const std::atomic<bool>* interrupted = nullptr);
    /// Counts as opened from now on, in place of what was opened before. Nothing for a reference to what is made.
    void put(const Timeline::MediaReference& media, const Source& source);
    /// Whether there is something to be opened that nobody has asked for yet. It counts as asked for from now on.
    bool isNew(const Timeline::MediaReference& media);
    /// Each medium that has been opened once, in the order in which they were first asked for.
    std::vector<Source> sources() const;

    /// Adds a sentence about the whole, as what comes out of several media; one that has been noted is dropped.
    void note(const std::string& what);
    /// What has been noted about media and about the whole since the last call; the latter without a path.
    std::vector<Kestra::Proc::SourceNote> takeNotes();

private:
    /// A medium's place among the opened ones, and whether it is a new one. The mutex is locked.
    std::pair<std::size_t, bool> takePlace(const std::string& key);
    Source make(const Timeline::MediaReference& media, const std::atomic<bool>* interrupted) const;

    const Kestra::Proc::MediaLimits limits;
    const Kestra::Proc::TrackChoice choice;
    mutable std::mutex mutex;
    std::map<std::string, std::size_t> places;
    std::vector<Source> opened; ///< by place; null for what has been asked for, but not been opened
    std::set<std::string> noted;
    std::vector<Kestra::Proc::SourceNote> notes;
};

} // namespace Render
