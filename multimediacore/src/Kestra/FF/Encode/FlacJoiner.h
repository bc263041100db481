// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::FlacJoiner: FLAC of several encoders as that of one.
#pragma once

#include "Kestra/FF/Encode/PacketJoiner.h"
#include <memory>
#include <vector>

extern "C" {
#include <libavutil/md5.h>
#include <libavutil/mem.h>
}

namespace Kestra::FF {

/// Each frame tells its number, under two checksums; the header tells the shortest and the longest frame, the number of
/// samples, and a checksum over all of them.
class FlacJoiner final : public PacketJoiner {
public:
    FlacJoiner();

    void Hear(const AVFrame& frame) override;
    void Place(PacketHandle& packet, std::int64_t number) const override;
    void Join(AVPacket& packet) override;

private:
    struct Free {
        void operator()(AVMD5* sum) const noexcept { av_free(sum); }
    };

    void Tell(std::uint8_t* header);

    const std::unique_ptr<AVMD5, Free> sum;
    std::vector<std::uint8_t> packed;
    std::int64_t samples = 0;
    int shortest = 0; ///< in bytes; 0 before the first
    int longest = 0;
};

} // namespace Kestra::FF
