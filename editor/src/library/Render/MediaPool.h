// Render::MediaPool: the media of a timeline, opened.
#pragma once

#include "EditorRenderExport.h"
#include "Kestra/Proc/IMediaSource.h"
#include "Kestra/Proc/MediaLimits.h"
#include "Timeline/Item.h"
#include <atomic>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace Render {

/// Opens each medium once, when it is first asked for, and remembers what it holds; no file stays open. Thread-safe.
class EDITORRENDER_EXPORT MediaPool {
public:
    using Source = boost::intrusive_ptr<Kestra::Proc::IMediaSource>;

    explicit MediaPool(const Kestra::Proc::MediaLimits& limits = {});

    /// The opened file or image sequence behind a reference; null for what is made, not read, and for what is missing.
    /// Throws Kestra::Proc::ProcException for what cannot be opened, also when `interrupted`, unless null, turns true
    /// meanwhile.
    Source open(const Timeline::MediaReference& media, const std::atomic<bool>* interrupted = nullptr);
    /// Each medium once, in the order of first use.
    std::vector<Source> sources() const;

    /// Adds a sentence about the whole, as what comes out of several media; one that has been noted is dropped.
    void note(const std::string& what);
    /// What has been noted about media and about the whole since the last call; the latter without a path.
    std::vector<Kestra::Proc::SourceNote> takeNotes();

private:
    Source make(const Timeline::MediaReference& media, const std::atomic<bool>* interrupted) const;

    const Kestra::Proc::MediaLimits limits;
    mutable std::mutex mutex;
    std::map<std::string, Source> opened;
    std::vector<Source> order;
    std::set<std::string> noted;
    std::vector<Kestra::Proc::SourceNote> notes;
};

} // namespace Render
