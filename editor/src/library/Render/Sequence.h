// SPDX-License-Identifier: GPL-3.0-or-later
// Render::Sequence: a timeline and its media, ready to be rendered.
#pragma once

#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/Proc/Settings/Pitch.h"
#include "Render/MediaPool.h"
#include "Timeline/Document.h"
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Render {

/// A value: what is chosen for sound.
struct SoundOptions {
    /// What becomes of the pitch of clips that are played at another speed.
    Kestra::Proc::Pitch pitch = Kestra::Proc::Pitch::Kept;
    /// Peaks beyond so much of full scale, 1/16 to 1, are turned down; unset: none are.
    std::optional<double> ceiling{};
    /// All of it so many times as loud, 1/64 to 64. Without a ceiling none but 1 counts.
    double gain = 1;
};

/// A value. Neither document nor media is null. Engine streams share both across threads.
struct EDITORRENDER_EXPORT Sequence {
    /// Told the index of each medium before it is opened; may be empty.
    using Next = std::function<void(std::size_t index)>;

    /// The files one after the other, each for its whole length, a still picture for 5 s; one that is named twice is
    /// opened once. Throws Kestra::Proc::ProcException for what cannot be opened or has no length, all of it told at
    /// once, and for an empty list; also when `interrupted`, unless null, turns true meanwhile. Any thread.
    static Sequence ofFiles(const std::vector<Kestra::ioPath>& files, const std::atomic<bool>* interrupted = nullptr,
                            const Kestra::Proc::MediaLimits& limits = {}, const Next& next = {},
                            const Kestra::Proc::TrackChoice& choice = {});
    /// A timeline, whose media are all opened, as far as those of the pool are not. Throws as ofFiles().
    static Sequence of(std::shared_ptr<const Timeline::Document> document, std::shared_ptr<MediaPool> media,
                       const std::atomic<bool>* interrupted = nullptr);

    std::shared_ptr<const Timeline::Document> document;
    std::shared_ptr<MediaPool> media;
    SoundOptions sound{};
    /// What its file says of itself, in the sequence's own time; unset: what the document does, and the time code of a
    /// document that tells one counts in any case.
    std::shared_ptr<const Kestra::Conf::ProgrammeInfo> programme{};
    /// Further tracks of sound for the file, in their order: the same document each, over media that have another main
    /// sound, without a programme and further ones of their own. See SoundTracks.
    std::vector<Sequence> furtherSounds{};

    /// The frame of its pictures is described in square pixels.
    bool squarePixels = false;

    /// Of this one and the further ones.
    std::vector<std::shared_ptr<MediaPool>> pools() const;
};

} // namespace Render
