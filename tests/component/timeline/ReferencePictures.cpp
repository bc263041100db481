// SPDX-License-Identifier: GPL-3.0-or-later
#include "ReferencePictures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace TimelineTests {

using Kestra::Ticks;
using Kestra::TimeMap;
using namespace Timeline;

namespace {

constexpr double BLACK_Y = 16, BLACK_UV = 128;
constexpr Ticks FOREVER{INT64_MAX};

/// Source time at `time` of what stands at `begin` with that excerpt, inside of what `map` maps.
TimeMap within(const TimeMap& map, Ticks begin, const Excerpt& excerpt) {
    return {begin, excerpt.start, map.speed * excerpt.speed};
}

} // namespace

ReferencePictures::ReferencePictures(const KnownMedia& media, const Document& document, const Kestra::FrameGrid& grid)
    : media(media)
    , document(document)
    , grid(grid) {}

std::optional<Colour> ReferencePictures::at(Kestra::FrameIndex frame, int column, int row) {
    middle = grid.Middle(frame);
    x = column + 0.5;
    y = row + 0.5;
    sure = true;
    const Light light = look(*document.tracks, {});
    if (!sure)
        return std::nullopt;
    return Colour{BLACK_Y + light.y, BLACK_UV + light.u, BLACK_UV + light.v, 1};
}

ReferencePictures::Light ReferencePictures::over(const Light& bottom, const Light& top) {
    const double rest = 1 - top.alpha;
    return {top.y + rest * bottom.y, top.u + rest * bottom.u, top.v + rest * bottom.v, top.alpha + rest * bottom.alpha};
}

ReferencePictures::Light ReferencePictures::mixed(const Light& from, const Light& to, double weight) {
    const auto part = [weight](double a, double b) { return a + weight * (b - a); };
    return {part(from.y, to.y), part(from.u, to.u), part(from.v, to.v), part(from.alpha, to.alpha)};
}

/// On the frame nearest to it; what runs backwards, or stands still, ends where it ends.
Ticks ReferencePictures::placed(const TimeMap& map, Ticks time) const {
    const Ticks exact = map.FromSource(time);
    return map.speed > 0 ? grid.Begin(grid.Nearest(exact)) : exact;
}

ReferencePictures::Light ReferencePictures::look(const Stack& stack, const TimeMap& map) {
    Light light;
    for (const Track& track : stack.tracks())
        if (track.kind() == Track::Kind::Video && track.isEnabled())
            light = over(light, look(track, map));
    return light;
}

/// All of it stands still at one moment of its own.
ReferencePictures::Light ReferencePictures::lookAtStill(const Track& track, const std::vector<Ticks>& starts,
                                                        const TimeMap& map) {
    const auto lookInto = [&](std::size_t i) {
        if (i == track.items().size())
            return Light();
        Item still = track.items()[i];
        const auto stop = [&](Excerpt& excerpt) {
            excerpt.start = TimeMap{starts[i], excerpt.start, excerpt.speed}.ToSource(map.there);
        };
        if (auto* clip = std::get_if<Clip>(&still.content))
            stop(clip->excerpt);
        else if (auto* nested = std::get_if<Nested>(&still.content))
            stop(nested->excerpt);
        return look(still, Ticks(0), map, FOREVER);
    };
    const auto isIn = [&map](Ticks begin, Ticks end) { return begin <= map.there && map.there < end; };
    for (std::size_t i = 0; i < track.items().size(); ++i) {
        if (!isIn(starts[i], starts[i + 1]))
            continue;
        for (const Transition& one : track.transitions()) {
            const Ticks begin = starts[one.at] - one.before, end = starts[one.at] + one.behind;
            if ((one.at != i && one.at != i + 1) || !isIn(begin, end))
                continue;
            blended = true;
            const auto done = static_cast<double>((grid.Middle(grid.Covering(map.there)) - begin).Value());
            return mixed(one.at > 0 ? lookInto(one.at - 1) : Light(), lookInto(one.at),
                         std::clamp(done / static_cast<double>((end - begin).Value()), 0.0, 1.0));
        }
        return lookInto(i);
    }
    return {};
}

ReferencePictures::Light ReferencePictures::look(const Track& track, const TimeMap& map) {
    std::vector<Ticks> starts{Ticks(0)};
    for (const Item& item : track.items())
        starts.push_back(starts.back() + item.duration);
    if (map.speed == 0)
        return lookAtStill(track, starts, map);
    std::vector<Ticks> edges;
    for (const Ticks start : starts)
        edges.push_back(placed(map, start));
    // Of an edge in the middle of a period, the frame belongs to what ends there.
    const Ticks moment = middle - Ticks(1);
    const auto isIn = [&](Ticks a, Ticks b) { return std::min(a, b) <= moment && moment < std::max(a, b); };
    const auto lasting = [&map](Ticks span) { return map.FromSource(span) - map.FromSource(Ticks(0)); };
    const auto lookInto = [&](std::size_t index) {
        if (index == track.items().size())
            return Light();
        // What it takes of its source may be over before the last frame on which it is placed.
        const std::size_t cut = map.speed > 0 ? index + 1 : index;
        Ticks end = starts[cut];
        for (const Transition& one : track.transitions())
            if (one.at == cut)
                end += map.speed > 0 ? one.behind : Ticks(0) - one.before;
        return look(track.items()[index], edges[index], map, edges[index] + lasting(end - starts[index]));
    };
    for (std::size_t i = 0; i < track.items().size(); ++i) {
        if (!isIn(edges[i], edges[i + 1]))
            continue;
        for (const Transition& one : track.transitions()) {
            const Ticks begin = edges[one.at] - lasting(one.before), end = edges[one.at] + lasting(one.behind);
            if ((one.at != i && one.at != i + 1) || !isIn(begin, end))
                continue;
            blended = true;
            return mixed(one.at > 0 ? lookInto(one.at - 1) : Light(), lookInto(one.at),
                         static_cast<double>((middle - begin).Value()) / static_cast<double>((end - begin).Value()));
        }
        return lookInto(i);
    }
    return {};
}

ReferencePictures::Light ReferencePictures::look(const Item& item, Ticks begin, const TimeMap& map, Ticks until) {
    if (!item.enabled)
        return {};
    if (const auto* inner = std::get_if<Nested>(&item.content))
        return lookInto(*inner->stack, within(map, begin, inner->excerpt));
    const auto* const clip = std::get_if<Clip>(&item.content);
    return clip ? look(*clip, within(map, begin, clip->excerpt), until) : Light();
}

/// Beyond its ends its first or last frame stays.
ReferencePictures::Light ReferencePictures::lookInto(const Stack& stack, const TimeMap& map) {
    if (stack.duration() == Ticks(0))
        return {};
    if (map.speed == 0)
        return look(stack, {Ticks(0), std::clamp(map.there, Ticks(0), stack.duration() - Ticks(1)), 0});
    const Ticks start = placed(map, Ticks(0)), finish = placed(map, stack.duration());
    const Kestra::FrameIndex first = grid.Nearest(std::min(start, finish)), end = grid.Nearest(std::max(start, finish));
    const Ticks now = middle, moment = middle - Ticks(1);
    if (moment < std::min(start, finish))
        middle = grid.Middle(first);
    else if (moment >= std::max(start, finish))
        middle = grid.Middle(end - Kestra::FrameIndex(1));
    const Light light = look(stack, map);
    middle = now;
    return light;
}

ReferencePictures::Light ReferencePictures::look(const Clip& clip, const TimeMap& map, Ticks until) {
    const auto* const file = std::get_if<MediaFile>(&clip.media.target);
    if (!file)
        return {};
    Ticks shown = map.ToSource(middle);
    if (map.speed > 0 && until < FOREVER)
        shown = std::min(shown, map.ToSource(until) - Ticks(Kestra::TICKS_PER_MILLISECOND));
    else if (map.speed < 0 && until < FOREVER)
        shown = std::max(shown, map.ToSource(until));
    return lookAt(media.picturesOf(file->path.ToUtf8()), shown - clip.origin.value_or(Ticks(0)));
}

ReferencePictures::Light ReferencePictures::lookAt(const KnownPictures& medium, Ticks time) {
    const int frame = medium.frameAt(time);
    // Times are rounded to ticks, which may be one this or that way.
    constexpr Ticks ROUNDING{4};
    const Kestra::FrameGrid own(medium.rate);
    const Ticks off = time - own.Begin(own.Nearest(time));
    sure = sure && (off == Ticks(0) || std::abs(off.Value()) > ROUNDING.Value() ||
                    medium.frameAt(time - ROUNDING) == medium.frameAt(time + ROUNDING));
    const double scale = std::min(double(WIDTH) / medium.width, double(HEIGHT) / medium.height);
    const double blockWidth = medium.width * scale / COLUMNS, blockHeight = medium.height * scale / ROWS;
    const double acrossBlocks = (x - (WIDTH - COLUMNS * blockWidth) / 2) / blockWidth;
    const double downBlocks = (y - (HEIGHT - ROWS * blockHeight) / 2) / blockHeight;
    // Enlarging reads two pixels of the medium on either side; chroma is half as fine.
    const double reach = scale > 1 ? 2.1 * scale : 2;
    const auto offEdge = [](double blocks) { return std::abs(blocks - std::round(blocks)); };
    sure = sure && offEdge(acrossBlocks) * blockWidth >= reach && offEdge(downBlocks) * blockHeight >= reach;
    if (acrossBlocks < 0 || acrossBlocks >= COLUMNS || downBlocks < 0 || downBlocks >= ROWS)
        return {};
    const Colour colour = medium.colourOf(frame, static_cast<int>(acrossBlocks), static_cast<int>(downBlocks));
    return {(colour.y - BLACK_Y) * colour.alpha, (colour.u - BLACK_UV) * colour.alpha,
            (colour.v - BLACK_UV) * colour.alpha, colour.alpha};
}

} // namespace TimelineTests
