// Kestra::FF::OnsetWatch: where sound begins after quiet.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstdint>

namespace Kestra::FF {

/// Looks through planar floating point samples in their order, as blocks come. Quiet is what stays below 1/100 of full
/// scale in all channels for at least a fiftieth of a second.
class OnsetWatch {
public:
    explicit OnsetWatch(int rate)
        : least(rate / QUIETS_A_SECOND) {}

    /// The first sample from `begin` on that ends a quiet; the block's length where none does. What was looked at up to
    /// there counts for the next call, which begins at that sample.
    int Find(const AVFrame& block, int begin);

private:
    static constexpr int QUIETS_A_SECOND = 50;

    int least;
    std::int64_t quiet = 0; ///< samples up to now
};

} // namespace Kestra::FF
