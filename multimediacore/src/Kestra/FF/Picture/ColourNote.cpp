// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/ColourNote.h"

#include "Kestra/FF/Picture/HdrMetadata.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Conf::ColourInfo;

namespace {

std::string NameOfPrimaries(int primaries) {
    switch (primaries) {
    case AVCOL_PRI_BT709:
        return "BT.709";
    case AVCOL_PRI_BT470BG:
    case AVCOL_PRI_SMPTE170M:
        return "BT.601";
    case AVCOL_PRI_BT2020:
        return "BT.2020";
    case AVCOL_PRI_SMPTE431:
    case AVCOL_PRI_SMPTE432:
        return "P3";
    default: {
        const char* name = av_color_primaries_name(static_cast<AVColorPrimaries>(primaries));
        return name ? name : "colour " + std::to_string(primaries);
    }
    }
}

std::string NameOf(const ColourInfo& colour) {
    if (colour.transfer == AVCOL_TRC_SMPTE2084)
        return "PQ";
    if (colour.transfer == AVCOL_TRC_ARIB_STD_B67)
        return "HLG";
    return NameOfPrimaries(colour.primaries);
}

std::string WhiteText() {
    return std::to_string(static_cast<int>(REFERENCE_WHITE)) + " cd/m2";
}

std::string ChangeText(const ColourChange& change, double peak) {
    const bool fromHigh = IsHighRange(change.before.transfer);
    const bool toHigh = IsHighRange(change.after.transfer);
    const std::string before = NameOf(change.before);
    const std::string after = NameOf(change.after);
    if (fromHigh && !toHigh)
        return "high dynamic range (" + before + ", up to " + std::to_string(static_cast<int>(peak)) +
               " cd/m2), tone-mapped to " + after + " (mobius curve)";
    if (toHigh && !fromHigh)
        return "standard dynamic range, placed in " + after + " with its white at " + WhiteText();
    return before == after ? std::string() : "colours converted from " + before + " to " + after;
}

std::string Text(const char* name, int code) {
    return name ? name : std::to_string(code);
}

} // namespace

std::string ColourCodes(const ColourInfo& colour) {
    return "primaries " +
           Text(av_color_primaries_name(static_cast<AVColorPrimaries>(colour.primaries)), colour.primaries) +
           ", transfer " +
           Text(av_color_transfer_name(static_cast<AVColorTransferCharacteristic>(colour.transfer)), colour.transfer) +
           ", matrix " + Text(av_color_space_name(static_cast<AVColorSpace>(colour.matrix)), colour.matrix);
}

std::string ColourNote(const ColourChange& change, double peak, bool told) {
    if (!ColourConverter::IsNeeded(change))
        return {};
    std::string changed = ChangeText(change, peak);
    if (told)
        return changed;
    const std::string guess = "does not fully tell its colour, taken for " + NameOf(change.before);
    return changed.empty() ? guess : guess + "; " + changed;
}

} // namespace Kestra::FF
