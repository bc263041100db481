// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/RunForecast.h"

#include <algorithm>

namespace ExportCore {
namespace {

constexpr double MILLISECONDS_A_SECOND = 1000;
/// What is nearer to the mark before is not kept: a pass has so many at most.
constexpr double FINEST = 0.001;
constexpr std::size_t MOST_MARKS = 1001;

} // namespace

RunForecast::RunForecast(const Run& run)
    : run(run) {
    reached.reserve(MOST_MARKS); // a run that is short of memory goes on
}

void RunForecast::beginPass(qint64 now) {
    const auto time = static_cast<double>(now);
    if (passIndex == 0)
        firstPassTook = time - start;
    passIndex = std::min(passIndex + 1, run.passes - 1);
    start = time;
    reached.clear();
}

void RunForecast::advance(int percent, qint64 guess, qint64 now) {
    if (passIndex < 0)
        return;
    constexpr int ENOUGH = 3; // percents of a pass, of which the first comes late and the others are then whole
    const double part = percent / 100.0 * run.passes - passIndex;
    if (part * 100 >= ENOUGH || guess <= 0)
        return reach(part, now);
    // How far the pass has come the guess tells finer than so few percents.
    const double elapsed = static_cast<double>(now) - start;
    const double share = elapsed / (elapsed + static_cast<double>(guess));
    const double finer = passIndex + 1 < run.passes ? share * run.passes - passIndex : share;
    reach(std::clamp(finer, part, part + run.passes / 100.0), now);
}

void RunForecast::reach(double part, qint64 now) {
    const double last = reached.empty() ? 0 : reached.back().part;
    if (part >= last + FINEST)
        reached.push_back({std::min(part, 1.0), static_cast<double>(now)});
}

/// Packets come out of an encoder late, and then at its pace: what came before the first of them says nothing of it.
/// The first third is not looked at any more, so that what the material was like at its beginning is forgotten in time.
double RunForecast::pace() const {
    if (reached.size() < 2)
        return 0;
    const Mark& last = reached.back();
    const double since = reached.front().time + (last.time - reached.front().time) / 3;
    const auto from =
        std::find_if(reached.begin(), reached.end() - 1, [=](const Mark& mark) { return mark.time >= since; });
    const Mark& first = from == reached.end() - 1 ? *(from - 1) : *from;
    const double took = last.time - first.time;
    return took > 0 ? (last.part - first.part) / took : 0;
}

double RunForecast::lengthByPace() const {
    const double now = pace();
    return now > 0 ? reached.back().time - start + (1 - reached.back().part) / now : 0;
}

/// A later pass begins with what is expected of it, which a fifth of it replaces.
double RunForecast::lengthOfPass() const {
    constexpr double CONVINCED = 0.2;
    const double paced = lengthByPace();
    if (passIndex == 0 || firstPassTook <= 0)
        return paced;
    const double expected = firstPassTook * run.laterPassCosts;
    const double weight = paced > 0 ? std::min(1.0, reached.back().part / CONVINCED) : 0;
    return weight * paced + (1 - weight) * expected;
}

double RunForecast::framesPerSecond() const {
    return static_cast<double>(run.frames) * pace() * MILLISECONDS_A_SECOND;
}

qint64 RunForecast::remaining(qint64 now) const {
    const double length = passIndex < 0 ? 0 : lengthOfPass();
    if (length <= 0)
        return -1;
    const double ofThis = std::max(0.0, start + length - static_cast<double>(now));
    const double first = passIndex == 0 ? length : firstPassTook;
    const int later = run.passes - 1 - passIndex;
    return static_cast<qint64>(ofThis + later * first * run.laterPassCosts);
}

} // namespace ExportCore
