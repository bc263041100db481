// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/PixelLoss.h"
#include <algorithm>

namespace Kestra::Conf {

namespace {

/// Palettes and mosaics hold red, green and blue; XYZ is nearer to these than to a luma.
bool IsRgb(PixelKind kind) {
    return kind != PixelKind::Yuv && kind != PixelKind::Gray;
}

std::string BitsBecame(const PixelFormatRecord& record) {
    return record.bits == 32 ? "floating point became " : std::to_string(record.bits) + " bits became ";
}

std::string SubsamplingOf(const PixelFormatRecord& record) {
    constexpr const char* NAMES[3][3] = {
        {"4:4:4", "4:4:0", "4:4:0"}, {"4:2:2", "4:2:0", "4:2:0"}, {"4:1:1", "4:1:0", "4:1:0"}};
    return NAMES[std::min(record.chromaShiftX, 2)][std::min(record.chromaShiftY, 2)];
}

void Append(std::string& words, const std::string& part) {
    words += (words.empty() || part.empty() ? "" : ", ") + part;
}

} // namespace

PixelLoss PixelLoss::Between(const PixelFormatRecord& from, const PixelFormatRecord& to) noexcept {
    PixelLoss loss;
    const bool coloured = from.kind != PixelKind::Gray;
    loss.colour = coloured && to.kind == PixelKind::Gray;
    loss.alpha = from.alpha && !to.alpha;
    if (coloured)
        loss.chroma =
            std::max(to.chromaShiftX - from.chromaShiftX, 0) + std::max(to.chromaShiftY - from.chromaShiftY, 0);
    loss.bits = std::max(from.bits - to.bits, 0);
    loss.model = coloured && !loss.colour ? IsRgb(from.kind) != IsRgb(to.kind) : !coloured && IsRgb(to.kind);
    return loss;
}

std::string AlphaLossInWords(const PixelFormatRecord& from, const PixelFormatRecord& to) {
    // A palette has room for alpha and rarely holds any.
    const bool lost = from.alpha && !to.alpha && from.kind != PixelKind::Palette;
    return lost ? "transparency was left out, over black" : "";
}

std::string LossInWords(const PixelFormatRecord& from, const PixelFormatRecord& to) {
    const PixelLoss loss = PixelLoss::Between(from, to);
    std::string words;
    if (loss.bits > 0)
        Append(words, BitsBecame(from) + std::to_string(to.bits));
    if (loss.colour)
        Append(words, "colour became gray");
    else if (loss.chroma > 0)
        Append(words, "colour of " + SubsamplingOf(from) + " became " + SubsamplingOf(to));
    if (from.kind == PixelKind::Bayer)
        Append(words, "the sensor's mosaic became pixels");
    Append(words, AlphaLossInWords(from, to));
    return words;
}

} // namespace Kestra::Conf
