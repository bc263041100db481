// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SquarePixels.h"

#include "EditorProject/SquarePixels.h"
#include "Kestra/Conf/Container.h"
#include <algorithm>
#include <numeric>

namespace ExportCore {
namespace {

std::string shapeOf(const Media::Video& video) {
    const std::uint32_t common = std::max(1U, std::gcd(video.aspectNumerator, video.aspectDenominator));
    return std::to_string(video.aspectNumerator / common) + ':' + std::to_string(video.aspectDenominator / common);
}

} // namespace

bool SquarePixels::areNeeded(const Preset& preset) {
    const Kestra::Conf::Container* const container = Kestra::Conf::Container::Find(preset.containerId());
    return container && container->squarePixels && preset.hasVideo();
}

Media::Video SquarePixels::of(const Media::Video& pictures, const Preset& preset) {
    return areNeeded(preset) ? Project::inSquarePixels(pictures) : pictures;
}

std::string SquarePixels::note(const std::vector<Project::SeenPictures>& pictures, const Preset& preset) {
    if (pictures.empty())
        return {};
    const Kestra::Conf::FrameInfo& frame = pictures.front().frame;
    Media::Video first;
    first.width = frame.width;
    first.height = frame.height;
    first.aspectNumerator = frame.aspectNumerator;
    first.aspectDenominator = frame.aspectDenominator;
    const Media::Video square = of(first, preset);
    if (square.width == first.width && square.height == first.height)
        return {};
    return "Pixels that are not square become square, " + std::to_string(first.width) + 'x' +
           std::to_string(first.height) + " as " + shapeOf(first) + ": viewers of such files know no others";
}

} // namespace ExportCore
