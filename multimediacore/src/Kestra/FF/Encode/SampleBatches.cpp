// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/SampleBatches.h"

#include "Kestra/FF/Data/DataAudioFF.h"
#include <algorithm>

namespace Kestra::FF {

namespace {

constexpr std::int64_t BATCH = 16384;

} // namespace

SampleBatches::SampleBatches(const boost::intrusive_ptr<Proc::IStreamAudio>& source, std::int64_t most)
    : AudioFilterBase(source, "batches")
    , left(most) {}

boost::intrusive_ptr<Proc::IDataAudio> SampleBatches::ReadAudio() {
    std::int64_t time = -1;
    while (queue.GetCount() < std::min(BATCH, left)) {
        const auto block = source->ReadAudio();
        if (!block)
            break;
        time = time < 0 ? block->GetTime() : time;
        queue.Push(MakeFrameReference(FrameOf(*block)));
    }
    FrameHandle batch = queue.Take(static_cast<int>(queue.GetCount()));
    if (!batch)
        return nullptr;
    left -= batch->nb_samples;
    return new DataAudioFF(std::move(batch), time);
}

} // namespace Kestra::FF
