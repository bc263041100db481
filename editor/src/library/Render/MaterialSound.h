// SPDX-License-Identifier: GPL-3.0-or-later
// Render::MaterialSound: the sound of one clip at its place.
#pragma once

#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/Settings/Pitch.h"
#include "Render/MediaPool.h"
#include "Render/OpenStreams.h"
#include "Render/SoundPlanner.h"
#include "Render/SoundTarget.h"

namespace Render {

/// Samples in the target's format, without gap. Sound that runs backwards, or stands still, is silent. No file is
/// opened before the first sample is asked for. One thread.
class MaterialSound {
public:
    using Streams = OpenStreams<Kestra::Proc::IStreamAudio>;
    using Block = boost::intrusive_ptr<Kestra::Proc::IDataAudio>;

    MaterialSound(const Material& material, MediaPool& media, const Kestra::SampleGrid& grid,
                  Kestra::Proc::Pitch pitch);

    const Material& material() const { return shown; }

    /// From sample `first` of the window on, borrowing `streams`; goes on with what another of the medium has left
    /// there. Throws Interrupted after an interrupt of the streams, and ProcException.
    void open(Streams& streams, Kestra::SampleIndex first, const SoundPlanner& planner, const SoundTarget& target);
    /// Closes, and leaves the medium's file and decoder to another.
    void leave();
    const MediaPool::Source& medium() const { return source; }

    /// How many samples can be taken at once; 0 where the sound has ended. Reads where none are at hand.
    Kestra::SampleIndex available();
    /// At most those available.
    Block take(Kestra::SampleIndex count);
    /// Before the medium begins: so many samples are silent, and available() counts from behind them.
    Kestra::SampleIndex silenceBefore() const { return before; }
    void passSilence(Kestra::SampleIndex count) { before -= count; }

private:
    boost::intrusive_ptr<Kestra::Proc::IStreamAudio>
    create(const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& decoded, const SoundTarget& target) const;
    boost::intrusive_ptr<Kestra::Proc::IStreamAudio> decode(Streams& streams, const SoundTarget& target,
                                                            Kestra::Ticks lasting) const;
    MediaPool::Source generator(const SoundTarget& target, Kestra::Ticks lasting) const;

    const Material shown;
    const Kestra::SampleGrid grid;
    const MediaPool::Source source;
    const Kestra::Proc::Pitch pitch;

    Streams::Lease stream;
    Kestra::SampleIndex place;  ///< of the stream's next sample that is wanted
    Kestra::SampleIndex before; ///< samples of silence
    bool landed = false;        ///< the first block after opening has told where reading began
    bool ended = false;
    Block block; ///< what is left of the last one read
};

} // namespace Render
