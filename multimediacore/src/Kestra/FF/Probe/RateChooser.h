// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::RateChooser: the constant frame rate that pictures are shown at.
#pragma once

#include <boost/rational.hpp>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Kestra::FF {

struct RateChoice {
    boost::rational<long long> rate; ///< 0 when nothing is known
    bool variable = false;           ///< pictures do not come at a constant distance
    std::size_t frames = 0;          ///< that were looked at
    std::size_t shown = 0;           ///< of them, at that rate
};

/// Chooses by what pictures do and not by what a header says. Rates within half a percent of a standard one are that
/// one. Pictures that stand on the grid of a rate have that rate, however they jitter around it and though some be
/// missing. Otherwise it is the lowest standard rate that shows at least 95 % of them, 60 at most.
class RateChooser {
public:
    using Rate = boost::rational<long long>;

    /// Times of pictures in runs that nothing is left out of, rising; engine time. `tick` is the period of the clock
    /// that they were rounded to. `nominal`, 0 when unknown, is the header's: it decides between rates that the times
    /// cannot tell apart.
    RateChooser(const std::vector<std::vector<std::int64_t>>& runs, std::int64_t tick, const Rate& nominal);

    /// Whether every run is even by itself, but for a picture now and then that is missing, and all at the same rate.
    bool IsSteady() const;
    RateChoice Choose() const;

private:
    /// The line through the times of one run.
    struct Line {
        double period = 0;
        double worst = 0;   ///< the largest distance of a time from it
        double doubt = 0;   ///< relative, by which the period may be off
        double missing = 0; ///< which part of its places no picture has
    };

    Line Fit(const std::vector<std::int64_t>& run, const std::vector<std::int64_t>& places) const;
    static std::vector<std::int64_t> PlacesWithHoles(const std::vector<std::int64_t>& run);
    bool IsEven(const Line& line) const;
    Line FitRun(const std::vector<std::int64_t>& run) const;
    const std::vector<std::int64_t>& LongestRun() const;
    Rate RateOf(const Line& line) const;
    bool StandsOn(const Rate& rate) const;
    Rate FindSparseGrid() const;
    Rate FindLowestRate() const;
    Rate FindUsualRate() const;
    std::size_t CountShown(const Rate& rate) const;
    bool Shows(const Rate& rate, double part) const;
    double Misfit(const Rate& rate) const;

    std::vector<std::vector<std::int64_t>> runs;
    double tick;
    Rate nominal;
    std::size_t frames = 0;
};

/// Of a variable rate, the end of a sentence: ", which leaves out 2 of its 63 pictures"; empty where none are. `whole`:
/// all pictures of the track were looked at.
std::string DescribeLeftOut(const RateChoice& choice, bool whole);

} // namespace Kestra::FF
