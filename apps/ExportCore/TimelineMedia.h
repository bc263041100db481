// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::TimelineMedia: looks at the media that a timeline names.
#pragma once

#include "ExportCore/MediaShortage.h"
#include "Render/MediaPool.h"
#include "Timeline/Reader/ITimelineReader.h"
#include <atomic>
#include <map>
#include <memory>
#include <string>
#include <variant>

namespace ExportCore {

/// Looks at each medium once, through a pool that others may use later. One thread at a time.
class TimelineMedia {
public:
    /// `interrupted`, borrowed unless null, ends what takes long with Kestra::Proc::ProcException.
    explicit TimelineMedia(std::shared_ptr<Render::MediaPool> pool, const std::atomic<bool>* interrupted = nullptr);

    /// How long a whole medium lasts among such tracks; nothing where it cannot be opened or, as a still picture, has
    /// no length of its own.
    std::optional<Kestra::Ticks> lengthOf(const Timeline::MediaReference& media, Timeline::Track::Kind kind);

    /// What is wrong with the media of the document: files that cannot be opened, or lack what their track wants, parts
    /// of them that clips or transitions show and that do not exist, pictures of sequences that are not there. Each
    /// sentence once for each clip that is switched on.
    std::vector<Timeline::Finding> check(const Timeline::Document& document);

    /// Why a medium cannot be opened; empty for one that can.
    std::string whyMissing(const Timeline::MediaReference& media);

private:
    /// What a file holds, or why it cannot be told.
    using Look = std::variant<Kestra::Proc::MediaInfo, std::string>;

    Look open(const Timeline::MediaReference& media);
    /// Of a file.
    const Look& lookAt(const Timeline::MediaReference& media);
    void check(const Timeline::Stack& stack, const std::string& place, std::vector<Timeline::Finding>& findings);
    /// Without a place.
    std::optional<Timeline::Finding> findingOf(const PlacedClip& placed);
    std::optional<Timeline::Finding> findingOf(const Timeline::MediaFile& file, const PlacedClip& placed);

    const std::shared_ptr<Render::MediaPool> pool;
    const std::atomic<bool>* const interrupted;
    std::map<std::string, Look> looks;
};

} // namespace ExportCore
