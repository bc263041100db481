// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::Tempo: sound at another speed.
#pragma once

#include "Kestra/FF/Av/FilterGraph.h"
#include "Kestra/FF/Data/SampleQueue.h"
#include "Kestra/FF/Filter/OnsetWatch.h"
#include "Kestra/Proc/Filters/AudioFilterBase.h"
#include "Kestra/Proc/Settings/Pitch.h"
#include <boost/rational.hpp>
#include <optional>

namespace Kestra::FF {

/// Works in stretches: what a stretch of the source becomes begins at the very sample where it belongs. Where the pitch
/// moves there is one. Where it is kept, libavfilter's atempo lays pieces of some 40 ms over each other where they fit
/// best, which moves what is in them by as much: a stretch therefore begins with every sudden sound, and these are in
/// their places exactly.
class Tempo final : public Proc::AudioFilterBase {
public:
    using Speed = boost::rational<long long>;

    /// `source` gives planar floating point of one rate and layout.
    Tempo(const boost::intrusive_ptr<Proc::IStreamAudio>& source, const Speed& speed, Proc::Pitch pitch);

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Prepare() override;
    void Reset() override;

private:
    void Settle();
    std::int64_t ToSource(std::int64_t sample) const;
    std::int64_t FromSource(std::int64_t sample) const;
    std::string Chain() const;
    std::int64_t SeekOrigin(std::int64_t sample) const;
    void Begin(std::int64_t sourceSample, std::int64_t sample);
    void ReadOn();
    void Send(const Proc::IDataAudio& data);
    void Collect(std::int64_t limit);
    void End();

    const Speed speed;
    const Proc::Pitch pitch;
    int rate = 0;
    std::int64_t total = -1;   ///< samples in all; -1: as many as come
    std::int64_t position = 0; ///< samples handed out
    std::int64_t read = 0;     ///< the source's next sample
    bool sourceEnded = false;
    SampleQueue queue;
    /// Of the stretch under way.
    std::optional<FilterGraph> graph;
    std::optional<OnsetWatch> onsets;
    std::int64_t begin = 0; ///< its first sample
    std::int64_t made = 0;  ///< samples
    FrameHandle shape;      ///< an empty block of what comes
};

/// As IFilterFactory::CreateTempo says.
boost::intrusive_ptr<Proc::IStreamAudio> MakeTempo(const boost::intrusive_ptr<Proc::IStreamAudio>& source,
                                                   const Tempo::Speed& speed, Proc::Pitch pitch);

} // namespace Kestra::FF
