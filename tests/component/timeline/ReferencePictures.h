// SPDX-License-Identifier: GPL-3.0-or-later
// What each pixel of each frame of a timeline is to be, found by looking at nothing but that pixel.
#pragma once

#include "Kestra/Base/FrameGrid.h"
#include "Kestra/Base/TimeMap.h"
#include "KnownMedia.h"
#include "Timeline/Document.h"
#include <optional>

namespace TimelineTests {

class ReferencePictures {
public:
    static constexpr int WIDTH = 64;
    static constexpr int HEIGHT = 36;

    ReferencePictures(const KnownMedia& media, const Timeline::Document& document, const Kestra::FrameGrid& grid);

    /// Over black. Nothing where a pixel lies too near to an edge for its colour to be told, or time too near to that
    /// between two pictures of a medium.
    std::optional<Colour> at(Kestra::FrameIndex frame, int x, int y);
    bool hasBlended() const { return blended; }

private:
    /// Weighted by alpha, black is 0.
    struct Light {
        double y = 0;
        double u = 0;
        double v = 0;
        double alpha = 0;
    };
    static Light over(const Light& bottom, const Light& top);
    static Light mixed(const Light& from, const Light& to, double weight);

    Light look(const Timeline::Stack& stack, const Kestra::TimeMap& map);
    Light lookInto(const Timeline::Stack& stack, const Kestra::TimeMap& map);
    Light look(const Timeline::Track& track, const Kestra::TimeMap& map);
    Light lookAtStill(const Timeline::Track& track, const std::vector<Kestra::Ticks>& starts,
                      const Kestra::TimeMap& map);
    /// Of a clip nothing is seen that comes later than what is shown at `until`.
    Light look(const Timeline::Item& item, Kestra::Ticks begin, const Kestra::TimeMap& map, Kestra::Ticks until);
    Light look(const Timeline::Clip& clip, const Kestra::TimeMap& map, Kestra::Ticks until);
    Light lookAt(const KnownPictures& medium, Kestra::Ticks time);
    Kestra::Ticks placed(const Kestra::TimeMap& map, Kestra::Ticks time) const;

    const KnownMedia& media;
    const Timeline::Document& document;
    const Kestra::FrameGrid grid;

    Kestra::Ticks middle; ///< of the period that is looked at
    double x = 0;         ///< the pixel's middle
    double y = 0;
    bool sure = true;
    bool blended = false;
};

} // namespace TimelineTests
