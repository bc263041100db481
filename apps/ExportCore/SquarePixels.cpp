// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SquarePixels.h"

#include "EditorProject/SquarePixels.h"
#include "Kestra/Conf/Container.h"

namespace ExportCore {
namespace {

std::string textOf(const Media::Video& video) {
    return std::to_string(video.width) + 'x' + std::to_string(video.height);
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
    return "Pixels that are not square become square, " + textOf(first) + " as " + textOf(square) +
           ": viewers of such files know no others";
}

} // namespace ExportCore
