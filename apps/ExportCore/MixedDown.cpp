// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/MixedDown.h"

#include "ExportCore/PresetSettings.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/SampleInfo.h"
#include <algorithm>

namespace ExportCore {
namespace {

using namespace Kestra;

/// What "--set channels" takes that has room for so many, or the most that there is; no channels where nothing has
/// more than `least`.
std::uint32_t layoutFor(int channels, int least, Conf::CodecID codec) {
    std::uint32_t best = Conf::CHANNEL_LAYOUT_UNKNOWN;
    for (const std::uint32_t layout : ClientAPI::CodecLimits::ChannelLayouts(codec)) {
        const int own = Conf::CountChannels(layout), before = Conf::CountChannels(best);
        if (own > least && (before < channels ? own > before : own >= channels && own < before))
            best = layout;
    }
    return best;
}

bool areChannelsGiven(const ExportRequest& request) {
    const std::vector<std::string>& given = PresetSettings::parse(request.settings).given;
    return std::find(given.begin(), given.end(), "channels") != given.end();
}

std::string nameOf(std::uint32_t layout) {
    return Conf::LayoutRecord::Find(layout)->name;
}

} // namespace

std::string MixedDown::note(const std::vector<Project::HeardSound>& sounds, std::uint32_t layout,
                            const ExportRequest& request, const Preset& preset) {
    const int channels = Conf::CountChannels(layout);
    if (!preset.hasAudio() || preset.channelLayout() != 0 || request.tracks.sound == TrackOptions::Sound::None ||
        areChannelsGiven(request))
        return {};
    std::vector<std::string> mixed;
    int most = channels;
    for (const Project::HeardSound& sound : sounds) {
        const int own = Conf::CountChannels(sound.channelLayout);
        if (own > channels)
            mixed.push_back('"' + sound.path.ToUtf8() + '"');
        most = std::max(most, own);
    }
    const std::uint32_t wider = mixed.empty() ? 0 : layoutFor(most, channels, preset.audioCodec());
    if (wider == 0)
        return {};
    const std::string what = mixed.size() == 1 ? " is mixed down to the channels of the first sound, "
                                               : " and " + std::to_string(mixed.size() - 1) +
                                                     " more are mixed down to the channels of the first sound, ";
    return mixed.front() + what + nameOf(layout) + "; --set channels=" + nameOf(wider) + " chooses others";
}

} // namespace ExportCore
