// SPDX-License-Identifier: GPL-3.0-or-later
// Timelines of the tests of planners, and what a planner finds in them in words.
#pragma once

#include "Render/PicturePlanner.h"
#include <cctype>
#include <sstream>

namespace Render::Tests {

using Kestra::FrameGrid;
using Kestra::FrameIndex;
using Kestra::Ticks;
using Timeline::Item;
using Timeline::Stack;
using Timeline::Track;
using Speed = boost::rational<long long>;

constexpr std::int64_t FRAME = Kestra::TIME_BASE / 25;
inline const FrameGrid GRID(25);

inline Item gap(std::int64_t frames) {
    Item item;
    item.duration = Ticks(frames * FRAME);
    return item;
}

inline Item clip(const std::string& name, std::int64_t frames, std::int64_t start = 0, const Speed& speed = 1) {
    Item item = gap(frames);
    item.name = name;
    item.content = Timeline::Clip{
        {name, Timeline::MediaFile{Kestra::ioPath("/" + name)}}, {Ticks(start * FRAME), speed}, Ticks(0)};
    return item;
}

inline Item nested(std::vector<Track> tracks, std::int64_t frames, std::int64_t start = 0, const Speed& speed = 1) {
    Item item = gap(frames);
    item.content = Timeline::Nested{std::make_shared<Stack>("", std::move(tracks)), {Ticks(start * FRAME), speed}};
    return item;
}

inline Track pictures(std::vector<Item> items, std::vector<Timeline::Transition> transitions = {},
                      bool enabled = true) {
    return Track(Track::Kind::Video, "", enabled, std::move(items), std::move(transitions));
}

inline Track sound(std::vector<Item> items, std::vector<Timeline::Transition> transitions = {}) {
    return Track(Track::Kind::Audio, "", true, std::move(items), std::move(transitions));
}

inline Timeline::Transition dissolve(std::size_t at, std::int64_t before, std::int64_t behind) {
    return {"", "SMPTE_Dissolve", at, Ticks(before * FRAME), Ticks(behind * FRAME)};
}

inline std::shared_ptr<const Timeline::Document> document(std::vector<Track> tracks) {
    auto made = std::make_shared<Timeline::Document>();
    made->tracks = std::make_shared<Stack>("", std::move(tracks));
    return made;
}

/// Names in capitals hide what lies below them.
inline bool hidesAll(const Timeline::Clip& clip) {
    return std::isupper(static_cast<unsigned char>(clip.media.name.front())) != 0;
}

inline PicturePlanner planner(std::vector<Track> tracks) {
    return PicturePlanner(document(std::move(tracks)), GRID, hidesAll);
}

/// In words: layers from the lowest one on, each as name@frame of its source; a fade as (from > to at its part).
inline std::string words(const Parts& parts, Ticks middle);

inline std::string words(const Part& part, Ticks middle) {
    std::ostringstream text;
    if (!part.fade) {
        text << *part.material.name << '@'
             << static_cast<double>(part.material.map.ToSource(middle).Value()) / static_cast<double>(FRAME) - 0.5;
        return text.str();
    }
    if (part.fade->still)
        middle = GRID.Middle(GRID.Covering(*part.fade->still));
    const double done = static_cast<double>((middle - part.fade->begin).Value()) /
                        static_cast<double>((part.fade->end - part.fade->begin).Value());
    text << '(' << words(part.from, middle) << " > " << words(part.to, middle) << " at " << done << ')';
    return text.str();
}

inline std::string words(const Parts& parts, Ticks middle) {
    std::string text;
    for (const Part& part : parts)
        text += (text.empty() ? "" : " ") + words(part, middle);
    return text;
}

inline std::string seen(const PicturePlanner& planner, std::int64_t frame) {
    return words(planner.sceneAt(FrameIndex(frame)).parts, GRID.Middle(FrameIndex(frame)));
}

} // namespace Render::Tests
