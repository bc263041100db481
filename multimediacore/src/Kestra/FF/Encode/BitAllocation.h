// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::BitAllocation: spreads the bits of a second pass over the frames of the first.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Kestra::FF {

/// For the encoders of the MPEG-4 family, which can be told a quantiser for each frame. They have a second pass of
/// their own, but it ends the process when the bitrate is too low for its statistics.
///
/// A frame is taken to cost bits in inverse proportion to its quantiser. Demanding frames get coarser quantisers,
/// less than they cost, since their neighbours hide it. What the plan got wrong so far, the frames that are left make
/// up for.
class BitAllocation {
public:
    /// One frame of the first pass: its kind, the quantiser as the encoder's lambda, what it took.
    struct Picture {
        char type = 'P';
        int lambda = 0;
        std::int64_t bits = 0;
    };
    struct Bounds {
        int lowestLambda = 1;
        int highestLambda = 1;
    };

    /// One line of the statistics; the number counts frames in the order in which they are shown.
    static std::string Line(std::int64_t number, const Picture& frame);
    /// The frames by number, nothing for lines that are not statistics of that many frames.
    static std::optional<std::vector<Picture>> Parse(const std::string& lines, std::int64_t count);

    /// `budget` in bits for all frames together.
    BitAllocation(std::vector<Picture> frames, double budget, const Bounds& bounds);

    bool IsKeyframe(std::int64_t number) const;
    /// For the next frame that goes to the encoder.
    int LambdaFor(std::int64_t number);
    /// What a frame took in the end.
    void Took(std::int64_t number, std::int64_t bits);

private:
    void WeighFrames();
    double FactorFor(double left, double cost, double drift) const;

    const std::vector<Picture> frames;
    const Bounds bounds;
    const double budget;
    std::vector<double> weights;   ///< the quantiser of each frame up to a common factor
    std::vector<double> costsFrom; ///< bits of this frame and all after it at a factor of 1
    std::vector<double> foreseen;  ///< bits of each frame that was handed out
    double underWay = 0;           ///< of those that did not come back yet
    double planned = 0;            ///< bits that the plan foresaw for the frames that came back
    double taken = 0;              ///< bits that they took
};

} // namespace Kestra::FF
