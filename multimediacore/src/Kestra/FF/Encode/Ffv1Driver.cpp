// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/VideoDrivers.h"
#include <algorithm>
#include <climits>

namespace Kestra::FF {

namespace {

class Driver final : public VideoDriver {
public:
    Driver()
        : VideoDriver(Conf::CodecID::FFV1, "ffv1") {}

    bool FollowsStream() const override { return true; }
    bool FlagsFields() const override { return true; }
    // Its earlier versions have no flags of fields for each frame.
    void AllowFields(AVCodecContext& context) const override { context.level = 3; }
    bool KeepsSamples() const override { return true; }
    bool HasRate() const override { return false; }

    // It makes its packets in a block for the worst case, which it clears and keeps: 1.2 GB of memory for UHD. Where
    // that is more than a packet can be, which is many times what any picture takes, it makes do with that.
    std::int64_t LargestPiece(const EncoderInput& frame) const override {
        constexpr std::int64_t BYTES_A_PIXEL = std::int64_t{37} * 4;
        constexpr std::int64_t HEAD = 1 << 16;
        return std::min<std::int64_t>(HEAD + BYTES_A_PIXEL * frame.width * frame.height, INT_MAX);
    }
};

} // namespace

const VideoDriver& Ffv1Driver() {
    static const auto& driver = *new Driver;
    return driver;
}

} // namespace Kestra::FF
