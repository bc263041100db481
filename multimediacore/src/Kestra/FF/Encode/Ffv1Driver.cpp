// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/VideoDrivers.h"

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
};

} // namespace

const VideoDriver& Ffv1Driver() {
    static const Driver driver;
    return driver;
}

} // namespace Kestra::FF
