// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/OtherPresets.h"

#include "ExportCore/NameList.h"
#include "ExportCore/Passes.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/SizeLimit.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Conf/PixelFormat.h"
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <optional>
#include <tuple>
#include <vector>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::CodecLimits;
using Kestra::Conf::PixelFormat;

int passesOf(const Preset& preset) {
    return Passes::of(preset, preset.hasVideo()).count;
}

PixelFormat formatOf(const Preset& preset) {
    const Kestra::Core::Property description = preset.videoEncoderData();
    const char* const tag = Kestra::Conf::IFormatCodecVideo::TAG_PIXEL_FORMAT;
    return description.ChildExists(tag) ? Kestra::Conf::PixelFormatFromString(description[tag].GetString())
                                        : PixelFormat::Unknown;
}

bool keepsAsMuch(const Preset& other, const Preset& preset) {
    return other.hasAudio() == preset.hasAudio() && (other.keepsDynamicRange() || !preset.keepsDynamicRange()) &&
           (HasAlpha(formatOf(other)) || !HasAlpha(formatOf(preset)));
}

long long areaOf(const Preset& preset) {
    return static_cast<long long>(preset.maxWidth()) * preset.maxHeight();
}

/// What people would miss or not expect comes first.
auto differences(const Preset& a, const Preset& b) {
    return std::make_tuple(formatOf(a) != formatOf(b), a.keepsDynamicRange() != b.keepsDynamicRange(),
                           passesOf(a) != passesOf(b), a.hasFixedResolution() != b.hasFixedResolution(),
                           std::abs(areaOf(a) - areaOf(b)));
}

using Condition = std::function<bool(const Preset&)>;

/// The first one of those that differ least.
std::optional<Preset> nearest(const Preset& preset, const Condition& suits) {
    const PresetCatalogue catalogue;
    std::optional<Preset> found;
    for (const std::string& id : catalogue.ids()) {
        const Preset other = catalogue.preset(id);
        const bool isOfItsKind =
            other.containerId() == preset.containerId() && other.videoCodec() == preset.videoCodec();
        if (isOfItsKind && suits(other) && (!found || differences(other, preset) < differences(*found, preset)))
            found = other;
    }
    return found;
}

/// A few of its kind: with the same container where there are pictures, else of sound alone.
std::string some(const PresetCatalogue& catalogue, const Preset& preset, const Condition& suits) {
    constexpr std::size_t MOST = 3;
    std::vector<std::string> ids;
    for (const std::string& id : catalogue.ids()) {
        const Preset other = catalogue.preset(id);
        const bool isOfItsKind = preset.hasVideo() ? other.containerId() == preset.containerId() : !other.hasVideo();
        if (ids.size() < MOST && isOfItsKind && suits(other))
            ids.push_back(id);
    }
    return NameList::joined(ids, " or ");
}

std::string clause(const std::optional<Preset>& preset, const std::string& words) {
    return preset ? "; \"" + preset->id() + "\" " + words : std::string();
}

} // namespace

std::string OtherPresets::holding(const Preset& preset, int width, int height) {
    const auto found = nearest(preset, [&](const Preset& other) {
        return areaOf(other) > areaOf(preset) && isWithinLimits(width, height, other) && keepsAsMuch(other, preset);
    });
    return found ? clause(found,
                          "takes up to " + std::to_string(found->maxWidth()) + 'x' + std::to_string(found->maxHeight()))
                 : std::string();
}

std::string OtherPresets::encodingIn(int passes, const Preset& preset) {
    const auto suits = [&](const Preset& other) { return passesOf(other) == passes && keepsAsMuch(other, preset); };
    const auto found = nearest(preset, suits);
    return clause(found, passes == 1 ? "encodes in one" : "encodes in two");
}

std::string OtherPresets::withSound(const Preset& preset) {
    return clause(nearest(preset, [](const Preset& other) { return other.hasAudio(); }), "has sound");
}

std::string OtherPresets::choosingBitrate(const Preset& preset, bool ofPicture) {
    const PresetCatalogue catalogue;
    const std::string ids = some(catalogue, preset, [ofPicture](const Preset& other) {
        const bool has = ofPicture ? other.hasVideo() : other.hasAudio();
        return has && CodecLimits::HasBitrate(ofPicture ? other.videoCodec() : other.audioCodec());
    });
    return ids.empty() ? ids : "; presets that do: " + ids;
}

std::string OtherPresets::withQualities(const Preset& preset) {
    const PresetCatalogue catalogue;
    const auto suits = [&](const Preset& other) { return !catalogue.qualitiesOf(other.id()).empty(); };
    const std::string ids = some(catalogue, preset, suits);
    return ids.empty() ? ids : "; presets that have some: " + ids;
}

std::string OtherPresets::qualitiesOf(const Preset& preset) {
    const std::vector<std::string> names = PresetCatalogue().qualitiesOf(preset.id());
    return names.empty() ? std::string()
                         : "; choose one of the preset's qualities (--quality " + NameList::joined(names, " or ") + ')';
}

} // namespace ExportCore
