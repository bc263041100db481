// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::Limiter: sound whose peaks stay below a ceiling.
#pragma once

#include "Kestra/FF/Av/FilterGraph.h"
#include "Kestra/FF/Data/SampleQueue.h"
#include "Kestra/Proc/Filters/AudioFilterBase.h"

namespace Kestra::FF {

/// libavfilter's alimiter, which looks 5 ms ahead; what it holds back for that is made up for.
class Limiter final : public Proc::AudioFilterBase {
public:
    /// `source` gives planar floating point of one rate and layout.
    Limiter(const boost::intrusive_ptr<Proc::IStreamAudio>& source, double ceiling, double gain);

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override;
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Reset() override;

private:
    void ReadOn();
    void Collect();
    void Begin();

    FilterGraph graph;
    SampleQueue queue;
    FrameHandle shape;         ///< a block of what comes
    std::int64_t position = 0; ///< samples
    bool sourceEnded = false;
};

/// As IFilterFactory::CreateLimiter says.
boost::intrusive_ptr<Proc::IStreamAudio> MakeLimiter(const boost::intrusive_ptr<Proc::IStreamAudio>& source,
                                                     double ceiling, double gain);

} // namespace Kestra::FF
