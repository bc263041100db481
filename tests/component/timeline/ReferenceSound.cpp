// SPDX-License-Identifier: GPL-3.0-or-later
#include "ReferenceSound.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace TimelineTests {

using Kestra::Ticks;
using Kestra::TimeMap;
using namespace Timeline;

namespace {

constexpr double QUARTER_TURN = 1.57079632679489661923;
/// A resampler needs so many samples to begin and to end.
constexpr long long RESAMPLED_EDGE = 48;
/// And a change of speed, which is made in stretches, so many.
constexpr long long SETTLING = 480;
constexpr double EXACT = 1e-4, RESAMPLED = 0.01;

/// The sound that clips of it play, in words, those within stacks included.
std::set<std::string> soundsOf(const Stack& stack) {
    std::set<std::string> all;
    for (const Track& track : stack.tracks())
        for (const Item& item : track.items()) {
            if (const auto* nested = std::get_if<Nested>(&item.content))
                all.merge(soundsOf(*nested->stack));
            const auto* const clip = std::get_if<Clip>(&item.content);
            const auto* const file = clip ? std::get_if<MediaFile>(&clip->media.target) : nullptr;
            if (file && track.kind() == Track::Kind::Audio)
                all.insert(file->path.ToUtf8() + ' ' + std::to_string(clip->excerpt.start.Value()) + ' ' +
                           std::to_string(item.duration.Value()));
        }
    return all;
}

/// Whether some sound track has a stack of the same name, at some time of `begin` to `end`, with a piece of its sound.
bool isHeardBeside(const Stack& around, const Item& item, Ticks begin, Ticks end) {
    const auto* const nested = std::get_if<Nested>(&item.content);
    for (const Track& track : around.tracks())
        for (std::size_t i = 0; track.kind() == Track::Kind::Audio && i < track.items().size(); ++i) {
            const Item& other = track.items()[i];
            const auto* const beside = std::get_if<Nested>(&other.content);
            if (!beside || other.name != item.name || track.startOf(i) >= end || begin >= track.startOf(i + 1))
                continue;
            if (beside->stack == nested->stack)
                return true;
            for (const std::string& sound : soundsOf(*beside->stack))
                if (soundsOf(*nested->stack).count(sound) != 0)
                    return true;
        }
    return false;
}

/// The track's item that begins at that time, with everything on.
const Item* beginningAt(const Track& track, Ticks time) {
    for (std::size_t i = 0; i < track.items().size(); ++i)
        if (track.startOf(i) == time && track.isEnabled() && track.items()[i].enabled)
            return &track.items()[i];
    return nullptr;
}

} // namespace

ReferenceSound::ReferenceSound(const KnownMedia& media, const Document& document, const Render::Window& window,
                               const Kestra::SampleGrid& grid)
    : media(media)
    , window(window)
    , grid(grid) {
    add(*document.tracks, {}, {std::numeric_limits<long long>::min(), std::numeric_limits<long long>::max(), {}});
}

double ReferenceSound::Voice::gainAt(long long sample) const {
    double gain = 1;
    for (const Fade& fade : fades) {
        const double done = std::clamp(double(sample - fade.begin) / double(fade.end - fade.begin), 0.0, 1.0);
        gain *= fade.in ? std::sin(QUARTER_TURN * done) : std::cos(QUARTER_TURN * done);
    }
    return gain;
}

/// Together with a picture on its frame; what runs backwards is silent anyway.
Ticks ReferenceSound::placed(const Stack& stack, const TimeMap& map, Ticks time) const {
    const Ticks exact = map.FromSource(time);
    if (map.speed < 0)
        return exact;
    const bool withPicture = std::any_of(stack.tracks().begin(), stack.tracks().end(), [time](const Track& track) {
        const Item* const item = beginningAt(track, time);
        return track.kind() == Track::Kind::Video && item && !std::holds_alternative<Gap>(item->content);
    });
    return withPicture ? window.grid()->Begin(window.grid()->Nearest(exact)) : exact;
}

void ReferenceSound::add(const Stack& stack, const TimeMap& map, const Around& around) {
    if (map.speed == 0)
        return;
    for (const Track& track : stack.tracks())
        if (track.isEnabled())
            add(stack, track, map, around);
}

void ReferenceSound::add(const Stack& stack, const Track& track, const TimeMap& map, const Around& around) {
    const std::size_t count = track.items().size();
    std::vector<Ticks> edges;
    for (std::size_t i = 0; i <= count; ++i)
        edges.push_back(placed(stack, map, track.startOf(i)));
    const auto lasting = [&map](Ticks span) { return map.FromSource(span) - map.FromSource(Ticks(0)); };
    for (std::size_t i = 0; i < count; ++i) {
        const Item& item = track.items()[i];
        Around here = around;
        Ticks from = edges[i], to = edges[i + 1];
        for (const Transition& one : track.transitions()) {
            if (one.at != i && one.at != i + 1)
                continue;
            const Ticks begin = edges[one.at] - lasting(one.before), end = edges[one.at] + lasting(one.behind);
            const bool later = one.at == i;
            // Never beyond its neighbours, which may have been moved to a frame.
            if (later && one.at > 0)
                from = std::clamp(begin, std::min(edges[i - 1], edges[i]), std::max(edges[i - 1], edges[i]));
            else if (!later && one.at < count)
                to = std::clamp(end, std::min(edges[i + 1], edges[i + 2]), std::max(edges[i + 1], edges[i + 2]));
            here.fades.push_back(begin < end ? Fade{sampleAt(begin), sampleAt(end), later}
                                             : Fade{sampleAt(end), sampleAt(begin), !later});
        }
        here.first = std::max(around.first, sampleAt(std::min(from, to)));
        here.end = std::min(around.end, sampleAt(std::max(from, to)));
        if (here.first >= here.end || !item.enabled)
            continue;
        if (const auto* clip = std::get_if<Clip>(&item.content)) {
            if (track.kind() == Track::Kind::Audio)
                add(*clip, {edges[i], clip->excerpt.start, map.speed * clip->excerpt.speed}, here);
        } else if (const auto* nested = std::get_if<Nested>(&item.content)) {
            const bool ownSound = track.kind() == Track::Kind::Audio ||
                                  !isHeardBeside(stack, item, track.startOf(i), track.startOf(i + 1));
            if (ownSound)
                add(*nested->stack, {edges[i], nested->excerpt.start, map.speed * nested->excerpt.speed}, here);
        }
    }
}

void ReferenceSound::add(const Clip& clip, const TimeMap& map, const Around& around) {
    const auto* const file = std::get_if<MediaFile>(&clip.media.target);
    if (!file || map.speed <= 0)
        return;
    const KnownSound& medium = media.soundOf(file->path.ToUtf8());
    const double speed = boost::rational_cast<double>(map.speed);
    const Ticks there = map.there - clip.origin.value_or(Ticks(0));
    const double before = map.speed == 1 ? double(grid.Nearest(there).Value())
                                         : double(there.Value()) / Kestra::TIME_BASE * grid.GetRate() / speed;
    const double start = double(sampleAt(map.here)) - before;
    const double length = double(medium.samples) / medium.rate * grid.GetRate() / speed;
    Voice voice{&medium, map.speed, start, around.first, around.end, around.fades};
    voice.first = std::max(voice.first, std::llround(std::ceil(start)));
    voice.end = std::min(voice.end, std::llround(std::ceil(start + length)));
    if (voice.first < voice.end)
        voices.push_back(voice);
}

std::optional<ReferenceSound::Expected> ReferenceSound::at(long long sample) const {
    Expected sum{0, EXACT};
    for (const Voice& voice : voices) {
        const bool own = voice.speed == 1 && voice.medium->rate == grid.GetRate();
        const long long edge = own ? 0 : voice.speed == 1 ? RESAMPLED_EDGE : SETTLING;
        if (sample < voice.first - edge || sample >= voice.end + edge)
            continue;
        if (voice.speed != 1 || sample < voice.first + edge || sample >= voice.end - edge)
            return std::nullopt;
        const double place = (double(sample) - voice.start) * voice.medium->rate / grid.GetRate();
        sum.value += voice.gainAt(sample) * voice.medium->valueAt(place);
        sum.tolerance += own ? EXACT : RESAMPLED;
        int going = 0;
        for (const Fade& fade : voice.fades) {
            if (sample < fade.begin - 1 || sample > fade.end)
                continue;
            // Its ends are rounded to samples, which may be one this or that way.
            sum.tolerance += LOUDNESS * QUARTER_TURN / double(fade.end - fade.begin);
            ++going;
        }
        // Dissolves that touch because of the frames they lie on: which one is heard, nothing says.
        if (going > 1)
            return std::nullopt;
    }
    return sum;
}

bool ReferenceSound::changesIn(const Voice& voice, long long first, long long end) const {
    const auto isIn = [&](long long sample) { return first < sample && sample < end; };
    bool changes = isIn(voice.first) || isIn(voice.end);
    for (const Fade& fade : voice.fades)
        changes = changes || (fade.begin < end && first < fade.end);
    return changes;
}

std::optional<std::map<int, double>> ReferenceSound::tonesIn(long long first, long long end) const {
    std::map<int, double> loudness;
    for (const KnownSound& medium : media.sounds())
        loudness[medium.id] = 0;
    std::map<int, int> heard;
    for (const Voice& voice : voices) {
        if (changesIn(voice, first - SETTLING, end + RESAMPLED_EDGE))
            return std::nullopt;
        if (!voice.isHeardAt(first))
            continue;
        loudness[voice.medium->id] = LOUDNESS;
        ++heard[voice.medium->id];
    }
    for (const auto& [id, times] : heard)
        if (times > 1)
            loudness.erase(id);
    return loudness;
}

bool ReferenceSound::hasOtherSpeedAt(long long sample) const {
    return std::any_of(voices.begin(), voices.end(),
                       [&](const Voice& voice) { return voice.speed != 1 && voice.isHeardAt(sample); });
}

} // namespace TimelineTests
