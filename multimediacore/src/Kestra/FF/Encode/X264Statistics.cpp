// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/X264Statistics.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

namespace Kestra::FF::X264Statistics {

namespace {

/// The number behind `label` in a line; 0 where there is none.
double NumberAfter(const std::string& line, const char* label) {
    const std::size_t at = line.find(label);
    return at == std::string::npos ? 0 : std::strtod(line.c_str() + at + std::strlen(label), nullptr);
}

} // namespace

double BitsForPixels(double factor) {
    constexpr double EXPONENT = 0.7; // x264's own
    return std::pow(factor, EXPONENT);
}

Summary Read(const std::string& path) {
    Summary summary;
    std::ifstream lines(path);
    std::string line;
    std::getline(lines, line);
    int width = 0, height = 0;
    if (std::sscanf(line.c_str(), "#options: %dx%d", &width, &height) == 2 && width > 0 && height > 0)
        summary.pixels = static_cast<double>(width) * height;
    while (std::getline(lines, line))
        summary.fixedBits += NumberAfter(line, " misc:");
    return summary;
}

} // namespace Kestra::FF::X264Statistics
