// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::SampleBatches: sound in fewer, longer blocks.
#pragma once

#include "Kestra/FF/Data/SampleQueue.h"
#include "Kestra/Proc/Filters/AudioFilterBase.h"
#include <cstdint>

namespace Kestra::FF {

/// For a thread that hands blocks to another one: sources give them of some milliseconds, and to wake a thread for each
/// costs as much as to decode it.
class SampleBatches final : public Proc::AudioFilterBase {
public:
    /// Reads no block that lies behind the first `most` samples.
    SampleBatches(const boost::intrusive_ptr<Proc::IStreamAudio>& source, std::int64_t most);

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override;

private:
    SampleQueue queue;
    std::int64_t left;
};

} // namespace Kestra::FF
