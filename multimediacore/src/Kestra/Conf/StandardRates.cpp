// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/StandardRates.h"

#include <cmath>

namespace Kestra::Conf {

namespace {

constexpr double TOLERANCE = 0.005;

} // namespace

const std::vector<boost::rational<long long>>& StandardRates() {
    static const auto& rates = *new std::vector<boost::rational<long long>>{10,
                                                                            12,
                                                                            {25, 2},
                                                                            {15000, 1001},
                                                                            15,
                                                                            20,
                                                                            {24000, 1001},
                                                                            24,
                                                                            {25},
                                                                            {30000, 1001},
                                                                            30,
                                                                            {48000, 1001},
                                                                            48,
                                                                            50,
                                                                            {60000, 1001},
                                                                            60,
                                                                            72,
                                                                            90,
                                                                            {96000, 1001},
                                                                            96,
                                                                            100,
                                                                            {120000, 1001},
                                                                            120,
                                                                            144,
                                                                            {240000, 1001},
                                                                            240};
    return rates;
}

boost::rational<long long> NearStandardRate(double rate) {
    boost::rational<long long> nearest = 0;
    double distance = TOLERANCE;
    for (const auto& standard : StandardRates()) {
        const double off = std::abs(rate / boost::rational_cast<double>(standard) - 1);
        if (off > distance)
            continue;
        distance = off;
        nearest = standard;
    }
    return nearest;
}

} // namespace Kestra::Conf
