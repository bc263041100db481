// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FirstPictures.h"

#include "ExportCore/PresetSettings.h"
#include "ExportCore/SizeLimit.h"
#include "Kestra/Proc/RateNote.h"
#include <algorithm>

namespace ExportCore {
namespace {

using Frame = Kestra::Conf::FrameInfo;
using Kestra::Proc::RateText;
using Rate = boost::rational<long long>;

bool isLarger(const Frame& frame, const Frame& other) {
    return frame.width > other.width && frame.height > other.height;
}

/// Scaled into the other, it becomes so much smaller that it matters: turned by a quarter, say, but no line or two.
bool losesPixels(const Frame& frame, const Frame& other) {
    const auto isBeyond = [](int side, int otherSide) { return 19 * side > 20 * otherSide; };
    return isLarger(frame, other) || isBeyond(frame.width, other.width) || isBeyond(frame.height, other.height);
}

std::string textOf(const Frame& frame) {
    return std::to_string(frame.width) + 'x' + std::to_string(frame.height);
}

/// The first one's name, and how many follow, with what is said of one or of several.
std::string told(const std::vector<std::string>& names, const char* ofOne, const char* ofSeveral) {
    return names.size() == 1 ? names.front() + ofOne
                             : names.front() + " and " + std::to_string(names.size() - 1) + ofSeveral;
}

std::string nameOf(const Project::SeenPictures& medium) {
    return '"' + medium.path.ToUtf8() + '"';
}

/// The numbers of both fit into 32 bits.
bool isMultiple(const Rate& rate, const Rate& of) {
    return rate.numerator() * of.denominator() % (rate.denominator() * of.numerator()) == 0;
}

} // namespace

FirstPictures::FirstPictures(const std::vector<Project::SeenPictures>& pictures, const ExportRequest& request,
                             const Preset& preset)
    : pictures(pictures)
    , request(request)
    , preset(preset) {}

bool FirstPictures::isGiven(const std::vector<std::string>& keys) const {
    const std::vector<std::string>& given = PresetSettings::parse(request.settings).given;
    return std::find_first_of(given.begin(), given.end(), keys.begin(), keys.end()) != given.end();
}

bool FirstPictures::hasOthers() const {
    return pictures.size() > 1 && preset.hasVideo() && request.tracks.picture;
}

std::string FirstPictures::noteOnSize() const {
    if (!hasOthers() || preset.hasFixedResolution() || isGiven({"size", "width", "height"}))
        return {};
    const Frame first = pictures.front().frame;
    if (!isWithinLimits(first.width + 1, first.height + 1, preset))
        return {};
    std::vector<std::string> scaled;
    Frame largest = first;
    for (const Project::SeenPictures& medium : pictures) {
        const Frame frame = medium.frame;
        if (!losesPixels(frame, first))
            continue;
        scaled.push_back(nameOf(medium));
        if (isWithinLimits(frame.width, frame.height, preset) && isLarger(frame, largest))
            largest = frame;
    }
    if (scaled.empty())
        return {};
    return told(scaled, " is scaled down to the size of the first pictures, ",
                " more are scaled down to the size of the first pictures, ") +
           textOf(first) +
           (largest != first ? "; --set size=" + textOf(largest) + " chooses another"
                             : "; --set size=WxH chooses another");
}

std::string FirstPictures::noteOnRate(const Rate& rate) const {
    if (!hasOthers() || rate <= 0 || isGiven({"frame-rate"}))
        return {};
    std::vector<std::string> changed;
    Rate highest = 0;
    for (const Project::SeenPictures& medium : pictures) {
        if (medium.rate <= 0 || isMultiple(rate, medium.rate))
            continue;
        changed.push_back(nameOf(medium));
        highest = std::max(highest, medium.rate);
    }
    if (changed.empty())
        return {};
    return told(changed, " is shown at the rate of the first pictures, ",
                " more are shown at the rate of the first pictures, ") +
           RateText(rate) + (changed.size() == 1 ? " instead of " : " instead of up to ") + RateText(highest) +
           (highest > rate ? " frames a second; --set frame-rate=" + RateText(highest) + " chooses another"
                           : " frames a second; --set frame-rate=RATE chooses another");
}

} // namespace ExportCore
