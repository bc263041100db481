// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioItems.h"

#include "Timeline/Reader/OtioMarkers.h"
#include "Timeline/Reader/OtioSchema.h"
#include "Timeline/Reader/OtioSpeed.h"
#include "Timeline/Reader/OtioTime.h"
#include "Timeline/Reader/Shortage.h"
#include "Timeline/Reader/TransitionFit.h"

namespace Timeline {
namespace {

using Kestra::Ticks;

bool hasTracks(const Stack& stack, Track::Kind kind) {
    for (const Track& track : stack.tracks())
        if (track.kind() == kind)
            return true;
    return false;
}

/// In which the range of a clip is told, or else that of its media.
std::optional<boost::rational<long long>> rateOf(const OtioNode& clip) {
    const OtioNode range =
        clip.has("source_range") ? clip["source_range"] : OtioMedia::referenceOf(clip)["available_range"];
    const OtioNode rate = range["duration"]["rate"];
    return rate.value().IsNumber() ? exactRate(rate.value().GetDouble()) : std::nullopt;
}

} // namespace

OtioItems::OtioItems(OtioContext& context, const OtioMedia& media)
    : context(context)
    , media(media) {}

std::shared_ptr<const Stack> OtioItems::readRoot(const OtioNode& node) {
    if (kindOf(node) != OtioKind::Stack) {
        std::vector<Track> tracks;
        if (auto track = readTrackOrItem(node))
            tracks.push_back(std::move(*track));
        return std::make_shared<Stack>(std::string(), std::move(tracks));
    }
    auto stack = readStack(node);
    const Cut cut = readCut(node);
    if (cut.isNone() || stack->tracks().empty())
        return stack;
    const OtioContext::Within within(context, "stack", node.text("name"));
    const bool isSeen = hasTracks(*stack, Track::Kind::Video);
    const Item whole = cutOut(node, stack, cut, isSeen ? Track::Kind::Video : Track::Kind::Audio);
    std::vector<Track> tracks;
    for (const Track::Kind kind : {Track::Kind::Video, Track::Kind::Audio})
        if (hasTracks(*stack, kind))
            tracks.emplace_back(kind, std::string(), true, std::vector<Item>{whole});
    return std::make_shared<Stack>(stack->name(), std::move(tracks));
}

std::shared_ptr<const Stack> OtioItems::readStack(const OtioNode& node) {
    const OtioContext::Within within(context, "stack", node.text("name"));
    checkVersion(context, node);
    std::vector<Track> tracks;
    const OtioNode children = node["children"];
    if (context.isTooDeep())
        context.error(node, "stacks and tracks stand too deep in each other");
    else if (!children.isArray())
        context.error(children, "a stack has no list of children");
    else
        for (std::size_t index = 0; index < children.size(); ++index)
            if (auto track = readTrackOrItem(children.at(index)))
                tracks.push_back(std::move(*track));
    return std::make_shared<Stack>(node.text("name"), std::move(tracks), readMarkers(context, node, Ticks(0)));
}

std::optional<Track> OtioItems::readTrackOrItem(const OtioNode& node) {
    if (kindOf(node) == OtioKind::Track)
        return readTrack(node);
    auto item = readItem(node, Track::Kind::Video);
    if (!item)
        return std::nullopt;
    return Track(Track::Kind::Video, item->name, true, {std::move(*item)});
}

std::optional<Track::Kind> OtioItems::trackKindOf(const OtioNode& node) {
    const std::string kind = node.text("kind");
    if (kind == "Audio")
        return Track::Kind::Audio;
    if (kind.empty())
        context.warn(node, "the track does not say what it holds; it is taken for pictures");
    else if (kind != "Video")
        context.warn(node["kind"], "tracks of the kind \"" + kind + "\" are left out");
    return kind.empty() || kind == "Video" ? std::optional(Track::Kind::Video) : std::nullopt;
}

std::optional<Track> OtioItems::readTrack(const OtioNode& node) {
    const OtioContext::Within within(context, "track", node.text("name"));
    checkVersion(context, node);
    const auto kind = trackKindOf(node);
    const OtioNode children = node["children"];
    if (!kind)
        return std::nullopt;
    if (context.isTooDeep() || !children.isArray()) {
        context.error(children, context.isTooDeep() ? "stacks and tracks stand too deep in each other"
                                                    : "a track has no list of children");
        return std::nullopt;
    }
    const Cut cut = readCut(node);
    std::vector<Marker> markers = readMarkers(context, node, Ticks(0));
    if (cut.isNone())
        return readChildren(node, *kind, std::move(markers));
    const Track track = readChildren(node, *kind, {});
    auto alone = std::make_shared<Stack>(std::string(), std::vector<Track>{track}, std::move(markers));
    return Track(*kind, track.name(), track.isEnabled(), {cutOut(node, std::move(alone), cut, *kind)});
}

Track OtioItems::readChildren(const OtioNode& node, Track::Kind kind, std::vector<Marker> markers) {
    const OtioContext::Unseen unseen(context, node.flag("enabled", true));
    const OtioNode children = node["children"];
    std::vector<Item> items;
    std::vector<PlacedTransition> transitions;
    Ticks end;
    for (std::size_t index = 0; index < children.size(); ++index) {
        const OtioNode child = children.at(index);
        if (kindOf(child) == OtioKind::Transition) {
            if (auto transition = readTransition(child)) {
                transition->at = items.size();
                transitions.emplace_back(std::move(*transition), child);
            }
        } else if (auto item = readItem(child, kind)) {
            if (item->duration > LONGEST - end) {
                context.error(child, "the track lasts longer than a year");
                break;
            }
            end += item->duration;
            items.push_back(std::move(*item));
        }
    }
    std::vector<Transition> fitted = fitTransitions(context, items, transitions, kind);
    return Track(kind, node.text("name"), node.flag("enabled", true), std::move(items), std::move(fitted),
                 std::move(markers));
}

std::optional<Item> OtioItems::readItem(const OtioNode& node, Track::Kind kind) {
    switch (kindOf(node)) {
    case OtioKind::Clip:
        return readClip(node, kind);
    case OtioKind::Gap:
        return readGap(node);
    case OtioKind::Stack:
    case OtioKind::Track:
        return readNested(node, kind);
    case OtioKind::Transition:
        context.warn(node, "a transition stands outside of a track and is left out");
        return std::nullopt;
    default:
        return readUnknown(node);
    }
}

std::optional<Item> OtioItems::readUnknown(const OtioNode& node) {
    auto gap = node.isObject() ? readGap(node) : std::nullopt;
    context.warn(node, "\"" + node.text("OTIO_SCHEMA") + "\" is not known; " +
                           (gap ? "there is a gap in its place"
                                : "it has no length either, and what follows begins at its place"));
    return gap;
}

std::optional<Item> OtioItems::readGap(const OtioNode& node) {
    checkVersion(context, node);
    if (!node.has("source_range"))
        return std::nullopt;
    const auto range = readRange(context, node["source_range"]);
    if (!range || range->duration == Ticks(0))
        return std::nullopt;
    return Item{node.text("name"), range->duration, true, Gap{}, readMarkers(context, node, range->start)};
}

std::optional<Item> OtioItems::readClip(const OtioNode& node, Track::Kind kind) {
    const OtioContext::Unseen unseen(context, node.flag("enabled", true));
    const OtioContext::Within within(context, "clip", node.text("name"));
    checkVersion(context, node);
    Clip clip;
    clip.media = media.read(node);
    clip.excerpt.speed = readSpeed(context, node);
    const auto range = rangeOfClip(node, clip, kind);
    if (!range)
        return std::nullopt;
    if (range->duration == Ticks(0)) {
        context.warn(node, "it lasts no time and is left out");
        return std::nullopt;
    }
    clip.excerpt.start = range->start;
    clip.rate = rateOf(node);
    return Item{node.text("name"),
                range->duration,
                node.flag("enabled", true),
                std::move(clip),
                readMarkers(context, node, range->start),
                node.pointer()};
}

std::optional<TimeRange> OtioItems::rangeOfClip(const OtioNode& node, Clip& clip, Track::Kind kind) {
    const auto& available = clip.media.available;
    if (available)
        clip.origin = available->start;
    if (node.has("source_range"))
        return readRange(context, node["source_range"]);
    if (available)
        return available;
    clip.origin = Ticks(0);
    const auto length = context.options.lengthOf ? context.options.lengthOf(clip.media, kind) : std::nullopt;
    if (length)
        return TimeRange{Ticks(0), *length};
    context.error(node, "nothing tells how long it lasts");
    return std::nullopt;
}

std::optional<Item> OtioItems::readNested(const OtioNode& node, Track::Kind kind) {
    const OtioContext::Unseen unseen(context, node.flag("enabled", true));
    std::shared_ptr<const Stack> stack;
    if (kindOf(node) == OtioKind::Stack) {
        stack = readStack(node);
        if (stack->duration() > Ticks(0) && !hasTracks(*stack, kind))
            tellOfNone(node, kind);
    } else {
        std::vector<Track> tracks;
        if (auto track = readTrack(node))
            tracks.push_back(std::move(*track));
        stack = std::make_shared<Stack>(node.text("name"), std::move(tracks));
    }
    const Cut cut = kindOf(node) == OtioKind::Stack ? readCut(node) : Cut{};
    const OtioContext::Within within(context, kindOf(node) == OtioKind::Stack ? "stack" : "track", node.text("name"));
    Item item = cutOut(node, stack, cut, kind);
    if (item.duration == Ticks(0)) {
        if (cut.range)
            context.warn(node, "it lasts no time and is left out");
        return std::nullopt;
    }
    item.name = node.text("name");
    item.enabled = node.flag("enabled", true);
    return item;
}

void OtioItems::tellOfNone(const OtioNode& node, Track::Kind kind) {
    const OtioContext::Within within(context, "stack", node.text("name"));
    context.warn(node, kind == Track::Kind::Video
                           ? "it has no pictures, and its place in a track of pictures stays empty"
                           : "it has no sound, and its place in a sound track stays silent");
}

Item OtioItems::cutOut(const OtioNode& node, std::shared_ptr<const Stack> stack, const Cut& cut, Track::Kind kind) {
    const TimeRange contents{Ticks(0), stack->duration()};
    const TimeRange range = cut.range.value_or(contents);
    if (contents.duration > Ticks(0))
        tellWhatIsBeyond(context, node, {{range.start, cut.speed}, range.duration}, contents, kind);
    std::vector<Marker> markers = stack->markers();
    for (Marker& marker : markers)
        marker.range.start -= range.start;
    std::string name = stack->name();
    return {std::move(name), range.duration, true, Nested{std::move(stack), {range.start, cut.speed}},
            std::move(markers)};
}

OtioItems::Cut OtioItems::readCut(const OtioNode& node) {
    Cut cut;
    cut.speed = readSpeed(context, node);
    if (node.has("source_range"))
        cut.range = readRange(context, node["source_range"]);
    return cut;
}

std::optional<Transition> OtioItems::readTransition(const OtioNode& node) {
    const OtioContext::Within within(context, "transition", node.text("name"));
    checkVersion(context, node);
    const auto before = readTime(context, node["in_offset"]);
    const auto behind = readTime(context, node["out_offset"]);
    if (!before || !behind)
        return std::nullopt;
    const std::string type = node.text("transition_type");
    if (!type.empty() && type != "SMPTE_Dissolve")
        context.warn(node["transition_type"], "transitions of the type \"" + type + "\" are made as dissolves");
    if (*before >= Ticks(0) && *behind >= Ticks(0))
        return Transition{node.text("name"), type, 0, *before, *behind};
    context.error(node, "a transition reaches a negative time to one side");
    return std::nullopt;
}

} // namespace Timeline
