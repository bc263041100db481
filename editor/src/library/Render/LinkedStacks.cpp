// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/LinkedStacks.h"

#include <algorithm>
#include <set>
#include <string>
#include <tuple>

namespace Render {

using namespace Timeline;
using Kestra::Ticks;

namespace {

/// What a clip plays: its medium, from where, for how long.
using Piece = std::tuple<std::string, Ticks, Ticks>;

/// Empty where the clip has no medium that sounds.
std::string mediumOf(const Clip& clip) {
    if (const auto* file = std::get_if<MediaFile>(&clip.media.target))
        return file->path.ToUtf8();
    if (const auto* made = std::get_if<Generator>(&clip.media.target))
        return "made " + std::to_string(made->frequency);
    return {};
}

void addSound(const Stack& stack, std::set<Piece>& pieces) {
    for (const Track& track : stack.tracks())
        for (const Item& item : track.items()) {
            const auto* const clip = std::get_if<Clip>(&item.content);
            if (const auto* const nested = std::get_if<Nested>(&item.content))
                addSound(*nested->stack, pieces);
            else if (clip && track.kind() == Track::Kind::Audio && !mediumOf(*clip).empty())
                pieces.emplace(mediumOf(*clip), clip->excerpt.start, item.duration);
        }
}

bool shareSound(const Stack& a, const Stack& b) {
    if (&a == &b)
        return true;
    std::set<Piece> first, second;
    addSound(a, first);
    addSound(b, second);
    return std::any_of(first.begin(), first.end(), [&second](const Piece& piece) { return second.count(piece) != 0; });
}

} // namespace

LinkedStacks::LinkedStacks(const Document& document) {
    find(*document.tracks);
}

void LinkedStacks::find(const Stack& stack) {
    if (!looked.insert(&stack).second)
        return;
    for (const Track& pictures : stack.tracks()) {
        for (const Item& item : pictures.items())
            if (const auto* nested = std::get_if<Nested>(&item.content))
                find(*nested->stack);
        for (const Track& sound : stack.tracks())
            if (pictures.kind() == Track::Kind::Video && sound.kind() == Track::Kind::Audio)
                find(pictures, sound);
    }
}

void LinkedStacks::find(const Track& pictures, const Track& sound) {
    for (std::size_t at = 0; at < sound.items().size(); ++at) {
        const Item& heard = sound.items()[at];
        const auto* const there = std::get_if<Nested>(&heard.content);
        if (!there)
            continue;
        const Ticks end = sound.startOf(at + 1);
        for (std::size_t i = pictures.itemAt(sound.startOf(at)); i < pictures.items().size(); ++i) {
            if (pictures.startOf(i) >= end)
                break;
            const Item& seen = pictures.items()[i];
            const auto* const here = std::get_if<Nested>(&seen.content);
            if (here && seen.name == heard.name && shareSound(*here->stack, *there->stack))
                linked.insert(here);
        }
    }
}

} // namespace Render
