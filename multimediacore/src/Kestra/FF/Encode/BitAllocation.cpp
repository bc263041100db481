// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/BitAllocation.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <utility>

namespace Kestra::FF {

namespace {

/// How much of a frame's demand it gets: 1 would give every frame the same quantiser, 0 the same bits.
constexpr double COMPRESSION = 0.6;
/// Frames to both sides whose demands count for one in between.
constexpr std::int64_t NEIGHBOURS = 20;
/// Keyframes are worth finer quantisers, frames that nothing refers to coarser ones.
constexpr double KEYFRAME_SHARE = 0.8;
constexpr double BIDIRECTIONAL_SHARE = 1.25;
/// Trust in the costs of the first pass, as a share of the whole budget, before those that came back outweigh it.
constexpr double TRUST = 0.05;
/// How far the frames that are left may stray from their plan to make up for the others.
constexpr double LARGEST_CORRECTION = 2;

double ShareOf(char type) {
    return type == 'I' ? KEYFRAME_SHARE : type == 'B' ? BIDIRECTIONAL_SHARE : 1.0;
}

double DemandOf(const BitAllocation::Picture& frame) {
    return static_cast<double>(std::max<std::int64_t>(frame.bits, 1)) * frame.lambda;
}

/// Each demand averaged over its surroundings, nearer ones counting more. A scene's keyframe is left out of those of
/// others: it says nothing of them.
std::vector<double> Blur(const std::vector<BitAllocation::Picture>& frames) {
    const auto count = static_cast<std::int64_t>(frames.size());
    std::vector<double> blurred;
    for (std::int64_t at = 0; at < count; ++at) {
        double sum = 0;
        double weights = 0;
        for (std::int64_t other = std::max<std::int64_t>(at - NEIGHBOURS, 0);
             other <= std::min(at + NEIGHBOURS, count - 1); ++other) {
            const auto& frame = frames[static_cast<std::size_t>(other)];
            if (frame.type == 'I' && other != at)
                continue;
            const double weight = static_cast<double>(NEIGHBOURS + 1 - std::abs(other - at));
            sum += weight * DemandOf(frame);
            weights += weight;
        }
        blurred.push_back(sum / weights);
    }
    return blurred;
}

} // namespace

std::string BitAllocation::Line(std::int64_t number, const Picture& frame) {
    return std::to_string(number) + ' ' + frame.type + ' ' + std::to_string(frame.lambda) + ' ' +
           std::to_string(frame.bits) + '\n';
}

std::optional<std::vector<BitAllocation::Picture>> BitAllocation::Parse(const std::string& lines, std::int64_t count) {
    // Whoever tells of more of them than there are lines is not believed, as long as that takes no memory.
    if (count > std::count(lines.begin(), lines.end(), '\n'))
        return std::nullopt;
    std::vector<std::optional<Picture>> found(static_cast<std::size_t>(count));
    std::istringstream input(lines);
    for (std::string line; std::getline(input, line);) {
        std::istringstream fields(line);
        std::int64_t number = -1;
        Picture frame;
        if (!(fields >> number >> frame.type >> frame.lambda >> frame.bits) || number < 0 || number >= count ||
            frame.lambda <= 0 || frame.bits < 0 || found[static_cast<std::size_t>(number)])
            return std::nullopt;
        found[static_cast<std::size_t>(number)] = frame;
    }
    std::vector<Picture> frames;
    for (const auto& frame : found) {
        if (!frame)
            return std::nullopt;
        frames.push_back(*frame);
    }
    return frames;
}

BitAllocation::BitAllocation(std::vector<Picture> frames, double budget, const Bounds& bounds)
    : frames(std::move(frames))
    , bounds(bounds)
    , budget(budget)
    , costsFrom(this->frames.size() + 1, 0.0)
    , foreseen(this->frames.size(), 0.0) {
    WeighFrames();
}

void BitAllocation::WeighFrames() {
    const std::vector<double> blurred = Blur(frames);
    for (std::size_t at = 0; at < frames.size(); ++at)
        weights.push_back(std::pow(blurred[at], 1 - COMPRESSION) * ShareOf(frames[at].type));
    for (std::size_t at = frames.size(); at-- > 0;)
        costsFrom[at] = costsFrom[at + 1] + DemandOf(frames[at]) / weights[at];
}

bool BitAllocation::IsKeyframe(std::int64_t number) const {
    return number < static_cast<std::int64_t>(frames.size()) && frames[static_cast<std::size_t>(number)].type == 'I';
}

double BitAllocation::FactorFor(double left, double cost, double drift) const {
    const double fair = drift * costsFrom.front() / budget;
    if (!(left > 0))
        return fair * LARGEST_CORRECTION;
    return std::clamp(cost / left, fair / LARGEST_CORRECTION, fair * LARGEST_CORRECTION);
}

int BitAllocation::LambdaFor(std::int64_t number) {
    // A frame more than the first pass had is like its last.
    const std::size_t at = std::min(static_cast<std::size_t>(number), frames.size() - 1);
    const double drift = (taken + TRUST * budget) / (planned + TRUST * budget);
    const double left = budget - taken - underWay * drift;
    const double factor = FactorFor(left, costsFrom[at] * drift, drift);
    const double wanted = std::clamp(factor * weights[at], static_cast<double>(bounds.lowestLambda),
                                     static_cast<double>(bounds.highestLambda));
    foreseen[at] = DemandOf(frames[at]) / wanted;
    underWay += foreseen[at];
    return static_cast<int>(std::lround(wanted));
}

void BitAllocation::Took(std::int64_t number, std::int64_t bits) {
    const std::size_t at = std::min(static_cast<std::size_t>(number), frames.size() - 1);
    underWay -= foreseen[at];
    planned += foreseen[at];
    taken += static_cast<double>(bits);
}

} // namespace Kestra::FF
