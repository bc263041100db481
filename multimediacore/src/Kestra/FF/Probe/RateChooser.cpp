// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Probe/RateChooser.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Conf/StandardRates.h"
#include "Kestra/Proc/Filters/SamplingRule.h"
#include <algorithm>
#include <cmath>
#include <numeric>

namespace Kestra::FF {

namespace {

using Rate = RateChooser::Rate;

// Beyond, a picture stands nearer to the place of another.
constexpr double LARGEST_JITTER = 0.45;
// Less is no variable rate to anybody.
constexpr double SMALLEST_JITTER = 0.1;
// How exactly pictures stand on the grid of a camera or a screen, in periods, where the clock is finer.
constexpr double EXACT = 0.02;
constexpr double SURELY_OFF = 0.1;
constexpr double SAME_RATE = 0.005;
// Pictures that a recording lost do not make its rate a variable one.
constexpr double SELDOM = 0.05;
// Half the distance of 29.97 and 30.
constexpr double SIBLINGS_APART = 0.0005;
// A grid on which fewer pictures stand is none.
constexpr std::size_t SPARSEST_GRID = 8;
constexpr double ENOUGH_SHOWN = 0.95;
// So many distances of one length are a rate, which a few others between joined parts do not change.
constexpr double NEARLY_ALL_DISTANCES = 0.9;
// Of pictures that jitter around a grid which is not quite their own, drift loses one now and then.
constexpr double NEARLY_ALL_SHOWN = 0.99;
constexpr double NEARLY_WHOLE = 0.25;
constexpr long long HIGHEST_VARIABLE_RATE = 60;
// Grids that pictures of a slide show may stand on, below the standard rates.
constexpr int LOW_GRIDS[] = {1, 2, 3, 4, 5, 6, 8};

double PeriodOf(const Rate& rate) {
    return static_cast<double>(TIME_BASE) / boost::rational_cast<double>(rate);
}

/// As 29.97 and 30 are.
bool AreSiblings(const Rate& rate, const Rate& other) {
    return std::abs(boost::rational_cast<double>(rate) / boost::rational_cast<double>(other) - 1) < SAME_RATE;
}

// The fraction of small terms that is as near as the times can tell.
Rate Simplest(double value, double doubt) {
    for (long long denominator = 1; denominator <= 1001; ++denominator) {
        const long long numerator = std::llround(value * static_cast<double>(denominator));
        if (numerator > 0 &&
            std::abs(static_cast<double>(numerator) / static_cast<double>(denominator) / value - 1) <= doubt)
            return {numerator, denominator};
    }
    return {std::max(1LL, std::llround(value * 1000)), 1000};
}

} // namespace

RateChooser::RateChooser(const std::vector<std::vector<std::int64_t>>& runs, std::int64_t tick, const Rate& nominal)
    : runs(runs)
    // A clock that counts pictures rounds nothing.
    , tick(nominal > 0 && 2 * static_cast<double>(tick) > PeriodOf(nominal) ? 0 : static_cast<double>(tick))
    , nominal(nominal) {
    for (const auto& run : runs)
        frames += run.size();
}

RateChooser::Line RateChooser::Fit(const std::vector<std::int64_t>& run,
                                   const std::vector<std::int64_t>& places) const {
    const auto count = static_cast<double>(run.size());
    double meanPlace = 0;
    double meanTime = 0;
    for (std::size_t index = 0; index < run.size(); ++index) {
        meanPlace += static_cast<double>(places[index]) / count;
        meanTime += static_cast<double>(run[index] - run.front()) / count;
    }
    double both = 0;
    double squares = 0;
    for (std::size_t index = 0; index < run.size(); ++index) {
        const double place = static_cast<double>(places[index]) - meanPlace;
        both += place * (static_cast<double>(run[index] - run.front()) - meanTime);
        squares += place * place;
    }
    Line line;
    line.period = both / squares;
    for (std::size_t index = 0; index < run.size(); ++index) {
        const double expected = meanTime + (static_cast<double>(places[index]) - meanPlace) * line.period;
        line.worst = std::max(line.worst, std::abs(static_cast<double>(run[index] - run.front()) - expected));
    }
    line.doubt = 2 * std::max(line.worst, tick) / (line.period * static_cast<double>(places.back()));
    line.missing = 1 - count / static_cast<double>(places.back() + 1);
    return line;
}

std::vector<std::int64_t> RateChooser::PlacesWithHoles(const std::vector<std::int64_t>& run) {
    std::vector<std::int64_t> distances(run.size() - 1);
    for (std::size_t index = 0; index < distances.size(); ++index)
        distances[index] = run[index + 1] - run[index];
    std::vector<std::int64_t> sorted = distances;
    std::nth_element(sorted.begin(), sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2), sorted.end());
    const auto usual = static_cast<double>(sorted[sorted.size() / 2]);
    std::vector<std::int64_t> places(1, 0);
    for (const std::int64_t distance : distances)
        places.push_back(places.back() +
                         std::max<std::int64_t>(1, std::llround(static_cast<double>(distance) / usual)));
    return places;
}

RateChooser::Line RateChooser::FitRun(const std::vector<std::int64_t>& run) const {
    std::vector<std::int64_t> places(run.size());
    std::iota(places.begin(), places.end(), 0);
    const Line even = Fit(run, places);
    if (even.worst <= std::max(tick, SMALLEST_JITTER * even.period))
        return even;
    // What stands exactly on a grid with holes does not jitter around one of a lower rate.
    const Line holed = Fit(run, PlacesWithHoles(run));
    return !IsEven(even) || holed.worst <= std::max(1.1 * tick, EXACT * holed.period) ? holed : even;
}

bool RateChooser::IsEven(const Line& line) const {
    return line.worst <= std::max(tick, LARGEST_JITTER * line.period);
}

const std::vector<std::int64_t>& RateChooser::LongestRun() const {
    return *std::max_element(runs.begin(), runs.end(),
                             [](const auto& a, const auto& b) { return a.size() < b.size(); });
}

// 0 when it is neither a standard rate nor told by the times exactly.
Rate RateChooser::RateOf(const Line& line) const {
    const double rate = static_cast<double>(TIME_BASE) / line.period;
    const Rate standard = Conf::NearStandardRate(rate);
    const double off = nominal > 0 ? std::abs(boost::rational_cast<double>(nominal) / rate - 1) : 1;
    if (standard > 0 && (line.doubt < SIBLINGS_APART || off > SAME_RATE))
        return standard;
    if (off <= std::max(line.doubt, SIBLINGS_APART))
        return standard > 0 ? Conf::NearStandardRate(boost::rational_cast<double>(nominal)) : nominal;
    if (standard > 0)
        return standard;
    const bool precise = line.worst <= std::max(tick, SMALLEST_JITTER / 2 * line.period);
    return precise && line.missing <= SELDOM ? Simplest(rate, std::max(line.doubt, 1e-6)) : Rate(0);
}

bool RateChooser::IsSteady() const {
    double slowest = 0;
    double fastest = 0;
    for (const auto& run : runs) {
        const Line line = FitRun(run);
        if (!IsEven(line) || line.missing > SELDOM || line.worst > std::max(1.5 * tick, SMALLEST_JITTER * line.period))
            return false;
        slowest = std::max(slowest, line.period * (1 - line.doubt));
        fastest = fastest > 0 ? std::min(fastest, line.period * (1 + line.doubt)) : line.period * (1 + line.doubt);
    }
    return !runs.empty() && slowest <= fastest * (1 + SAME_RATE);
}

RateChoice RateChooser::Choose() const {
    RateChoice choice;
    choice.frames = frames;
    choice.rate = nominal > 0 ? Conf::NearStandardRate(boost::rational_cast<double>(nominal)) : Rate(0);
    choice.rate = choice.rate > 0 ? choice.rate : nominal;
    choice.shown = frames;
    if (runs.empty())
        return choice;
    const Line line = FitRun(LongestRun());
    choice.variable = !IsSteady();
    Rate rate = IsEven(line) && (!choice.variable || runs.size() == 1) ? RateOf(line) : Rate(0);
    if (rate > 0 && choice.variable && !Shows(rate, NEARLY_ALL_SHOWN))
        rate = 0;
    const Rate usual = FindUsualRate();
    // A line through parts that are joined off their grid is a little off their rate.
    if (rate > 0 && usual > 0 && line.worst > std::max(tick, SMALLEST_JITTER * line.period) && AreSiblings(usual, rate))
        rate = usual;
    if (rate == 0)
        rate = FindSparseGrid();
    if (rate == 0) {
        rate = FindLowestRate();
        if (usual > 0 && CountShown(usual) >= CountShown(rate))
            rate = usual;
    }
    choice.rate = rate;
    choice.shown = CountShown(rate);
    return choice;
}

bool RateChooser::StandsOn(const Rate& rate) const {
    const double period = PeriodOf(rate);
    const double tolerance = std::min(SURELY_OFF, std::max(1.1 * tick / period, EXACT));
    std::size_t periods = 0;
    for (const auto& run : runs) {
        std::int64_t last = -1;
        for (const std::int64_t time : run) {
            const double place = static_cast<double>(time - run.front()) / period;
            const std::int64_t index = std::llround(place);
            if (index <= last || std::abs(place - static_cast<double>(index)) > tolerance)
                return false;
            last = index;
        }
        periods += static_cast<std::size_t>(last) + 1;
    }
    return periods <= SPARSEST_GRID * frames;
}

// The lowest rate on whose grid all pictures stand, though many of its periods have none of their own.
Rate RateChooser::FindSparseGrid() const {
    for (const int rate : LOW_GRIDS)
        if (StandsOn(rate))
            return rate;
    for (const Rate& rate : Conf::StandardRates())
        if (rate <= HIGHEST_VARIABLE_RATE && StandsOn(rate))
            return rate;
    return 0;
}

Rate RateChooser::FindLowestRate() const {
    const auto& rates = Conf::StandardRates();
    for (std::size_t index = 0; rates[index] < HIGHEST_VARIABLE_RATE; ++index) {
        if (!Shows(rates[index], ENOUGH_SHOWN))
            continue;
        // 29.97 and 30 show the same number; which of them fits better is what was meant.
        const Rate& next = rates[index + 1];
        const bool siblings = AreSiblings(next, rates[index]);
        const bool better = siblings && Misfit(next) < Misfit(rates[index]);
        return better ? next : rates[index];
    }
    return HIGHEST_VARIABLE_RATE;
}

// The rate of nearly all distances; 0 where there is none, or one that no variable rate becomes.
Rate RateChooser::FindUsualRate() const {
    std::vector<double> distances;
    for (const auto& run : runs)
        for (std::size_t index = 1; index < run.size(); ++index)
            distances.push_back(static_cast<double>(run[index] - run[index - 1]));
    if (distances.empty())
        return 0;
    std::vector<double> sorted = distances;
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    const double tolerance = std::max(1.1 * tick, EXACT * *middle);
    double sum = 0;
    std::size_t count = 0;
    for (const double distance : distances)
        if (std::abs(distance - *middle) <= tolerance) {
            sum += distance;
            ++count;
        }
    if (sum <= 0 || static_cast<double>(count) < NEARLY_ALL_DISTANCES * static_cast<double>(distances.size()))
        return 0;
    const Rate rate = Conf::NearStandardRate(static_cast<double>(TIME_BASE) * static_cast<double>(count) / sum);
    return rate <= HIGHEST_VARIABLE_RATE ? rate : Rate(0);
}

std::size_t RateChooser::CountShown(const Rate& rate) const {
    const Proc::SamplingRule rule(FrameGrid(rate), Proc::SamplingRule::Pace::Grid);
    std::size_t shown = 0;
    for (const auto& run : runs) {
        FrameIndex last(-1);
        for (const std::int64_t time : run) {
            const bool isFirst = last < FrameIndex(0);
            const FrameIndex period = isFirst ? FrameIndex(0) : rule.FirstShowingAfter(last, Ticks(time - run.front()));
            shown += period > last ? 1 : 0;
            last = period;
        }
    }
    return shown;
}

bool RateChooser::Shows(const Rate& rate, double part) const {
    return static_cast<double>(CountShown(rate)) >= part * static_cast<double>(frames);
}

// How far distances that are nearly whole periods are off them.
double RateChooser::Misfit(const Rate& rate) const {
    double sum = 0;
    for (const auto& run : runs)
        for (std::size_t index = 1; index < run.size(); ++index) {
            const double periods = static_cast<double>(run[index] - run[index - 1]) / PeriodOf(rate);
            const double off = std::abs(periods - std::round(periods));
            sum += off < NEARLY_WHOLE ? off : 0;
        }
    return sum;
}

std::string DescribeLeftOut(const RateChoice& choice, bool whole) {
    if (choice.shown >= choice.frames)
        return {};
    return ", which leaves out " + std::to_string(choice.frames - choice.shown) +
           (whole ? " of its " : " of the first ") + std::to_string(choice.frames) + " pictures";
}

} // namespace Kestra::FF
