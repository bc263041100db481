// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::AudioLevels: the timestamps of an audio track's packets against the samples in them.
#pragma once

#include <cstdint>
#include <vector>

namespace Kestra::FF {

/// Takes the packets of a stretch in order. All in engine time.
class AudioLevels {
public:
    void Clear();
    /// `time` may be TIME_UNKNOWN. Packets of unknown length make the rest meaningless.
    void Take(std::int64_t time, std::int64_t length);

    /// Whether timestamps go to and fro while samples follow on.
    bool AreJittery() const;
    /// By how much a timestamp differs from the one before beyond the samples between them, on average.
    std::int64_t GetJitter() const;
    /// Where the first packet begins by what all timestamps of the beginning mean together.
    std::int64_t GetStart() const;
    /// By how much that is later than its own timestamp.
    std::int64_t GetStartCorrection() const;
    /// Of all packets.
    std::int64_t GetLength() const { return sum; }
    /// Of the first packet.
    std::int64_t GetFirstLength() const { return firstLength; }
    /// Where the samples of the last packet end by what all timestamps mean together.
    std::int64_t GetEnd() const;

private:
    std::int64_t MeanOf(std::size_t begin, std::size_t end) const;
    std::size_t Span() const;
    bool IsOneLevel() const;

    /// Of each packet: where the stretch begins if it is right.
    std::vector<std::int64_t> levels;
    std::int64_t sum = 0; ///< of lengths
    std::int64_t firstLength = 0;
    std::int64_t forth = 0;
    std::int64_t back = 0;
    std::int64_t distance = 0; ///< of levels from one to the next, added up
};

} // namespace Kestra::FF
