// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::GeneratedPicture: bars and plain colours.
#pragma once

#include "Kestra/FF/Filter/RepeatedPicture.h"
#include "Kestra/Proc/Settings/SettingsGenerator.h"

namespace Kestra::FF {

class GeneratedPicture final : public RepeatedPicture {
public:
    /// Of Bars or Colour.
    explicit GeneratedPicture(const Proc::SettingsGenerator& settings);

    std::string Describe() const override;

    /// What its frames are in.
    static Conf::ColourInfo ColourFor(const Conf::FrameInfo& frame);
    static constexpr AVPixelFormat PIXEL_FORMAT = AV_PIX_FMT_YUV420P;

private:
    FrameHandle Draw() const override;
    FrameHandle DrawBars(const Conf::FrameInfo& frame, bool highDefinition) const;
    FrameHandle DrawColour(const Conf::FrameInfo& frame, const Conf::ColourInfo& colour) const;

    const Proc::SettingsGenerator settings;
};

} // namespace Kestra::FF
