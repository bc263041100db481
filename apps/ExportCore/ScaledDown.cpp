// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/ScaledDown.h"

#include "ExportCore/PresetSettings.h"
#include "ExportCore/SizeLimit.h"
#include <algorithm>

namespace ExportCore {
namespace {

using Frame = Kestra::Conf::FrameInfo;

bool isSizeGiven(const ExportRequest& request) {
    const std::vector<std::string>& given = PresetSettings::parse(request.settings).given;
    return std::any_of(given.begin(), given.end(),
                       [](const std::string& key) { return key == "size" || key == "width" || key == "height"; });
}

bool isLarger(const Frame& frame, const Frame& other) {
    return frame.width > other.width && frame.height > other.height;
}

std::string textOf(const Frame& frame) {
    return std::to_string(frame.width) + 'x' + std::to_string(frame.height);
}

} // namespace

std::string ScaledDown::note(const std::vector<Project::SeenPictures>& pictures, const ExportRequest& request,
                             const Preset& preset) {
    if (pictures.empty() || !preset.hasVideo() || preset.hasFixedResolution() || !request.tracks.picture ||
        isSizeGiven(request))
        return {};
    const Frame first = pictures.front().frame;
    if (!isWithinLimits(first.width + 1, first.height + 1, preset))
        return {};
    std::vector<std::string> scaled;
    Frame largest = first;
    for (const auto& [path, frame] : pictures) {
        if (!isLarger(frame, first))
            continue;
        scaled.push_back('"' + path.ToUtf8() + '"');
        if (isWithinLimits(frame.width, frame.height, preset) && isLarger(frame, largest))
            largest = frame;
    }
    if (scaled.empty())
        return {};
    const std::string more = scaled.size() == 1 ? " is" : " and " + std::to_string(scaled.size() - 1) + " more are";
    return scaled.front() + more + " scaled down to the size of the first pictures, " + textOf(first) +
           "; --set size=" + (largest != first ? textOf(largest) : "WxH") + " chooses another";
}

} // namespace ExportCore
