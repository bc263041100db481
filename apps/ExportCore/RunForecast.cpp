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

double RunForecast::partRead(std::int64_t reached, std::int64_t start, std::int64_t length) {
    return length > 0 ? std::clamp(static_cast<double>(reached - start) / static_cast<double>(length), 0.0, 1.0) : -1;
}

RunForecast::RunForecast(const Run& run)
    : run(run) {
    reached.reserve(MOST_MARKS); // a run that is short of memory goes on
    firstPass.reserve(MOST_MARKS);
}

void RunForecast::beginPass(qint64 now) {
    const auto time = static_cast<double>(now);
    if (passIndex == 0) {
        firstPassTook = time - start;
        keepFirstPass();
    }
    passIndex = std::min(passIndex + 1, run.passes - 1);
    start = time;
    heldBack = -1;
    marksWhileReading = 0;
    last = {0, start};
    reached.clear();
}

/// Without its end, where nothing is read any more: it goes on there as it came.
void RunForecast::keepFirstPass() {
    constexpr double TELLING = 0.1; // of the pass
    reached.resize(marksWhileReading);
    firstPass.swap(reached);
    for (Mark& mark : firstPass)
        mark.time -= start;
    if (firstPass.size() < 2)
        return firstPass.clear();
    const Mark end = firstPass.back();
    const auto from = std::find_if(firstPass.begin(), firstPass.end() - 2,
                                   [=](const Mark& mark) { return mark.part >= end.part - TELLING; });
    const double timeOfAPart = (end.time - from->time) / (end.part - from->part);
    if (end.part < 1)
        firstPass.push_back({1, end.time + (1 - end.part) * timeOfAPart});
}

void RunForecast::advance(const Sight& sight, qint64 now) {
    if (passIndex < 0)
        return;
    last = {std::clamp(partOf(sight, now), 0.0, 1.0), static_cast<double>(now)};
    if (last.part < (reached.empty() ? 0 : reached.back().part) + FINEST)
        return;
    reached.push_back(last);
    if (sight.read < 1)
        marksWhileReading = reached.size();
}

/// Percents are whole ones, too few of them at the beginning to tell how fast a run is. What was read is known to the
/// picture, and packets follow at that pace.
double RunForecast::partOf(const Sight& sight, qint64 now) {
    const double part = sight.percent / 100.0 * run.passes - passIndex;
    const double next = part + run.passes / 100.0;
    if (sight.read >= 0) {
        if (heldBack < 0)
            heldBack = sight.read - part;
        const double behind = std::clamp(sight.read - heldBack, part, next);
        heldBack = sight.read - behind;
        return behind;
    }
    constexpr int ENOUGH = 3; // percents of a pass, of which the first comes late and the others are then whole
    if (part * 100 >= ENOUGH || sight.guess <= 0)
        return part;
    const double elapsed = static_cast<double>(now) - start;
    const double share = elapsed / (elapsed + static_cast<double>(sight.guess));
    const double finer = passIndex + 1 < run.passes ? share * run.passes - passIndex : share;
    return std::clamp(finer, part, next);
}

/// Packets come out of an encoder late, and then at its pace: what came before the first of them says nothing of it.
/// The first third is not looked at any more, so that what the material was like at its beginning is forgotten in time.
RunForecast::Stretch RunForecast::latest() const {
    if (reached.size() < 2)
        return {};
    const Mark& end = reached.back();
    const double since = reached.front().time + (end.time - reached.front().time) / 3;
    const auto from =
        std::find_if(reached.begin(), reached.end() - 1, [=](const Mark& mark) { return mark.time >= since; });
    const Mark& begin = from == reached.end() - 1 ? *(from - 1) : *from;
    return {begin, end};
}

double RunForecast::pace() const {
    const auto [begin, end] = latest();
    return end.time > begin.time ? (end.part - begin.part) / (end.time - begin.time) : 0;
}

double RunForecast::inFirstPass(double part) const {
    const auto next =
        std::find_if(firstPass.begin(), firstPass.end() - 1, [=](const Mark& mark) { return mark.part >= part; });
    const Mark before = next == firstPass.begin() ? Mark{0, 0} : *(next - 1);
    const double way = next->part - before.part;
    const double share = way > 0 ? std::clamp((part - before.part) / way, 0.0, 1.0) : 1;
    return before.time + share * (next->time - before.time);
}

/// Before its first packet an encoder takes in the pictures that it holds back. When all has been read, nothing is
/// decoded and looked at any more beside what it encodes, so the last packets come faster than those before: by about
/// half of that time, as benchmarks show.
double RunForecast::sparedAtTheEnd() const {
    if (heldBack <= 0)
        return 0;
    const double lead = reached.front().time - start;
    return lead / 2 * std::min(1.0, (1 - reached.back().part) / heldBack);
}

double RunForecast::lengthByPace() const {
    const double now = pace();
    if (now <= 0)
        return 0;
    const double yet = firstPass.empty() ? (1 - reached.back().part) / now : yetLikeFirstPass();
    return reached.back().time - start + std::max(yet - sparedAtTheEnd(), yet / 2);
}

/// What is dear in the first pass is dear in the others.
double RunForecast::yetLikeFirstPass() const {
    const auto [begin, end] = latest();
    const double then = inFirstPass(end.part) - inFirstPass(begin.part);
    const double took = end.time - begin.time;
    return then > 0 ? took / then * (inFirstPass(1) - inFirstPass(end.part))
                    : took / (end.part - begin.part) * (1 - end.part);
}

/// The first packets of an encoder that is just under way promise too long a time, what it took in before them too
/// short a one. The more packets have come, the less the latter counts: soon not at all where most of a short film is
/// held back, as taking it in says nothing of what encoding it costs.
double RunForecast::lengthBySights() const {
    constexpr double UNDER_WAY = 0.05;
    const double paced = lengthByPace();
    const double beginning = std::min(heldBack, UNDER_WAY);
    if (beginning <= 0 || last.part >= beginning)
        return paced;
    const double asRead = (last.time - start) / (heldBack + last.part);
    const double weight = paced > 0 ? last.part / beginning : 0;
    return weight * paced + (1 - weight) * asRead;
}

/// A later pass begins with what is expected of it, which a fifth of it replaces.
double RunForecast::lengthOfPass() const {
    constexpr double CONVINCED = 0.2;
    const double paced = lengthBySights();
    if (passIndex == 0 || firstPassTook <= 0)
        return paced;
    const double expected = firstPassTook * run.laterPassCosts;
    const double weight = paced > 0 ? std::min(1.0, last.part / CONVINCED) : 0;
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
