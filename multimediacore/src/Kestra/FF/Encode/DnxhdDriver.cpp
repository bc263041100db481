// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/VideoDrivers.h"

namespace Kestra::FF {

namespace {

class Driver final : public VideoDriver {
public:
    Driver()
        : VideoDriver(Conf::CodecID::DNxHD, "dnxhd") {}

    bool FollowsStream() const override { return true; }

    std::string Advise(const EncoderInput& frame) const override {
        return "pictures of " + std::to_string(frame.width) + "x" + std::to_string(frame.height) +
               " do not go with that bitrate or profile. Without a profile it takes, in 8 bits and progressive, "
               "1920x1080 at 36, 45, 75, 90, 115, 120, 145, 175, 185, 220, 240, 290, 365 or 440 Mbit/s, "
               "1440x1080 at 63, 84, 100 or 110, 1280x720 at 60, 75, 90, 110, 120, 145, 180 or 220 "
               "and 960x720 at 42, 60, 75 or 115; with one of the profiles dnxhr_lb, dnxhr_sq, dnxhr_hq, dnxhr_hqx "
               "and dnxhr_444 any size from 256x120 on";
    }
};

} // namespace

const VideoDriver& DnxhdDriver() {
    static const auto& driver = *new Driver;
    return driver;
}

} // namespace Kestra::FF
