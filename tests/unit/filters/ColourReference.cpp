// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/filters/ColourReference.h"

#include <algorithm>
#include <cmath>

namespace ColourReference {

using Kestra::Conf::ColourInfo;

namespace {

using Matrix = std::array<std::array<double, 3>, 3>;

constexpr double WHITE = 203;
constexpr int PQ = 16;
constexpr int HLG = 18;

std::array<double, 3> times(const Matrix& matrix, const std::array<double, 3>& vector) {
    std::array<double, 3> result{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            result[row] += matrix[row][column] * vector[column];
    return result;
}

Matrix inverse(const Matrix& m) {
    Matrix result{};
    double determinant = 0;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) {
            const std::size_t a = (i + 1) % 3, b = (i + 2) % 3, c = (j + 1) % 3, d = (j + 2) % 3;
            result[j][i] = m[a][c] * m[b][d] - m[a][d] * m[b][c];
            if (j == 0)
                determinant += m[i][0] * result[0][i];
        }
    for (auto& row : result)
        for (double& cell : row)
            cell /= determinant;
    return result;
}

/// Red, green and blue of those primaries with the white D65 into XYZ.
Matrix toXyz(int primaries) {
    using Point = std::array<double, 2>;
    const auto points = [primaries]() -> std::array<Point, 3> {
        switch (primaries) {
        case 5:
            return {{{0.64, 0.33}, {0.29, 0.60}, {0.15, 0.06}}};
        case 6:
            return {{{0.630, 0.340}, {0.310, 0.595}, {0.155, 0.070}}};
        case 9:
            return {{{0.708, 0.292}, {0.170, 0.797}, {0.131, 0.046}}};
        default:
            return {{{0.64, 0.33}, {0.30, 0.60}, {0.15, 0.06}}};
        }
    }();
    Matrix matrix{};
    for (std::size_t colour = 0; colour < 3; ++colour) {
        const auto [x, y] = points[colour];
        matrix[0][colour] = x / y;
        matrix[1][colour] = 1;
        matrix[2][colour] = (1 - x - y) / y;
    }
    const std::array<double, 3> white{0.3127 / 0.3290, 1, (1 - 0.3127 - 0.3290) / 0.3290};
    const std::array<double, 3> scale = times(inverse(matrix), white);
    for (auto& row : matrix)
        for (std::size_t colour = 0; colour < 3; ++colour)
            row[colour] *= scale[colour];
    return matrix;
}

/// Shares of red and blue in luma.
std::array<double, 2> shares(int matrix) {
    if (matrix == 9)
        return {0.2627, 0.0593};
    return matrix == 1 ? std::array<double, 2>{0.2126, 0.0722} : std::array<double, 2>{0.299, 0.114};
}

std::array<double, 3> toRgb(const Code& code, int bits, const ColourInfo& colour) {
    const double unit = 1 << (bits - 8);
    const bool full = colour.range == 2;
    const double top = (1 << bits) - 1;
    const double y = full ? code[0] / top : (code[0] / unit - 16) / 219;
    const double cb = full ? (code[1] - 128 * unit) / top : (code[1] / unit - 128) / 224;
    const double cr = full ? (code[2] - 128 * unit) / top : (code[2] / unit - 128) / 224;
    const auto [kr, kb] = shares(colour.matrix);
    const double r = y + 2 * (1 - kr) * cr;
    const double b = y + 2 * (1 - kb) * cb;
    return {r, (y - kr * r - kb * b) / (1 - kr - kb), b};
}

Code toCode(const std::array<double, 3>& rgb, int bits, const ColourInfo& colour) {
    const double unit = 1 << (bits - 8);
    const bool full = colour.range == 2;
    const double top = (1 << bits) - 1;
    const auto [kr, kb] = shares(colour.matrix);
    const double y = kr * rgb[0] + (1 - kr - kb) * rgb[1] + kb * rgb[2];
    const double cb = (rgb[2] - y) / (2 * (1 - kb));
    const double cr = (rgb[0] - y) / (2 * (1 - kr));
    const auto chroma = [&](double value) { return full ? value * top + 128 * unit : (value * 224 + 128) * unit; };
    const Code code{full ? y * top : (y * 219 + 16) * unit, chroma(cb), chroma(cr)};
    Code clipped{};
    for (std::size_t at = 0; at < 3; ++at)
        clipped[at] = std::clamp(code[at], 0.0, top);
    return clipped;
}

/// There is no light below none: what lies beyond the primaries is cut off at them.
double powerOf(double value, double exponent) {
    return std::pow(std::max(value, 0.0), exponent);
}

/// cd/m2 of a PQ signal, and back (SMPTE ST 2084).
double pqLight(double signal) {
    const double p = std::pow(std::max(signal, 0.0), 1 / 78.84375);
    return 10000 * std::pow(std::max(p - 0.8359375, 0.0) / (18.8515625 - 18.6875 * p), 1 / 0.1593017578125);
}
double pqSignal(double light) {
    const double p = std::pow(std::clamp(light / 10000, 0.0, 1.0), 0.1593017578125);
    return std::pow((0.8359375 + 18.8515625 * p) / (1 + 18.6875 * p), 78.84375);
}

constexpr double HLG_A = 0.17883277, HLG_B = 0.28466892, HLG_C = 0.55991073;

double hlgScene(double signal) {
    return signal <= 0.5 ? signal * signal / 3 : (std::exp((signal - HLG_C) / HLG_A) + HLG_B) / 12;
}
double hlgSignal(double scene) {
    return scene <= 1.0 / 12 ? std::sqrt(3 * std::max(scene, 0.0)) : HLG_A * std::log(12 * scene - HLG_B) + HLG_C;
}

double luma2020(const std::array<double, 3>& rgb) {
    return 0.2627 * rgb[0] + 0.6780 * rgb[1] + 0.0593 * rgb[2];
}

/// cd/m2 of each component, on a display of 1000 cd/m2 for HLG (BT.2100).
std::array<double, 3> toLight(std::array<double, 3> rgb, int transfer) {
    if (transfer == HLG) {
        for (double& value : rgb)
            value = hlgScene(value);
        const double system = 1000 * std::pow(luma2020(rgb), 0.2);
        for (double& value : rgb)
            value *= system;
        return rgb;
    }
    for (double& value : rgb)
        value = transfer == PQ ? pqLight(value) : WHITE * powerOf(value, 2.4);
    return rgb;
}

std::array<double, 3> fromLight(std::array<double, 3> light, int transfer) {
    if (transfer == HLG) {
        const double shown = luma2020(light) / 1000;
        const double scale = shown > 0 ? std::pow(shown, 1 / 1.2 - 1) / 1000 : 0;
        for (double& value : light)
            value = hlgSignal(value * scale);
        return light;
    }
    for (double& value : light)
        value = transfer == PQ ? pqSignal(value) : powerOf(value / WHITE, 1 / 2.4);
    return light;
}

double mobius(double value, double peak) {
    const double j = 0.3;
    if (value <= j)
        return value;
    const double a = -j * j * (peak - 1) / (j * j - 2 * j + peak);
    const double b = (j * j - 2 * j * peak + peak) / (peak - 1);
    return (b * b + 2 * b * j + j * j) / (b - a) * (value + a) / (value + b);
}

/// All components by what happens to the greatest.
void compress(std::array<double, 3>& light, double white, double peak) {
    const double greatest = std::max({light[0], light[1], light[2], 1e-9}) / white;
    const double factor = mobius(greatest, peak / white) / greatest;
    for (double& value : light)
        value *= factor;
}

bool isHigh(const ColourInfo& colour) {
    return colour.transfer == PQ || colour.transfer == HLG;
}

} // namespace

Code convert(const Code& code, int bits, const ColourInfo& from, int bitsAfter, const ColourInfo& to, double peak) {
    std::array<double, 3> rgb = toRgb(code, bits, from);
    if (from.primaries == to.primaries && isHigh(from) == isHigh(to) && (from.transfer == to.transfer || !isHigh(to)))
        return toCode(rgb, bitsAfter, to);
    std::array<double, 3> light = toLight(rgb, from.transfer);
    light = times(inverse(toXyz(to.primaries)), times(toXyz(from.primaries), light));
    if (isHigh(from) && !isHigh(to))
        compress(light, WHITE, peak);
    return toCode(fromLight(light, to.transfer), bitsAfter, to);
}

double greyCode(double luminance, int bits, const ColourInfo& colour) {
    return toCode(fromLight({luminance, luminance, luminance}, colour.transfer), bits, colour)[0];
}

} // namespace ColourReference
