// Project::Timeline: clips one after the other.
#pragma once

#include "EditorProject/Clip.h"
#include "EditorProjectExport.h"
#include "Kestra/Proc/MediaLimits.h"
#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace Project {

/// Never changes once it is open, so engine streams share it across threads.
class EDITORPROJECT_EXPORT Timeline {
public:
    /// Reads what each file holds; a file that is named twice is read once. Throws Kestra::Proc::ProcException, also
    /// when `interrupted`, unless null, turns true meanwhile. `next`, unless empty, is told the index of each file
    /// before it is opened. May be called on any thread.
    static std::shared_ptr<const Timeline> open(const std::vector<Kestra::ioPath>& media,
                                                const std::atomic<bool>* interrupted = nullptr,
                                                const Kestra::Proc::MediaLimits& limits = {},
                                                const std::function<void(std::size_t index)>& next = {});

    const std::vector<Clip>& clips() const { return allClips; }
    /// The opened medium behind the clip of that index.
    Kestra::Proc::IMediaSource& source(std::size_t clip) const { return *sourceOfClip[clip]; }
    /// Each medium once, in the order of first use.
    const std::vector<boost::intrusive_ptr<Kestra::Proc::IMediaSource>>& sources() const { return allSources; }
    /// Engine time.
    std::int64_t duration() const { return allClips.empty() ? 0 : allClips.back().start + allClips.back().duration; }

private:
    void append(const boost::intrusive_ptr<Kestra::Proc::IMediaSource>& media);

    std::vector<Clip> allClips;
    std::vector<boost::intrusive_ptr<Kestra::Proc::IMediaSource>> sourceOfClip;
    std::vector<boost::intrusive_ptr<Kestra::Proc::IMediaSource>> allSources;
};

} // namespace Project
