// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/VideoDrivers.h"

namespace Kestra::FF {

namespace {

class Driver final : public VideoDriver {
public:
    Driver()
        : VideoDriver(Conf::CodecID::ProRes, "prores_ks") {}

    bool FollowsStream() const override { return true; }
    bool HasRate() const override { return false; }
};

} // namespace

const VideoDriver& ProResDriver() {
    static const auto& driver = *new Driver;
    return driver;
}

} // namespace Kestra::FF
