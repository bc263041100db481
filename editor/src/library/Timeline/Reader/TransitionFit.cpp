// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/TransitionFit.h"

#include "Kestra/Base/TimeMap.h"
#include "Timeline/Stack.h"
#include <algorithm>

namespace Timeline {

using Kestra::Ticks;

namespace {

/// How much of the stretch `first` to `last` of an item's place, beyond the item itself, its stack lacks.
Ticks lackOf(const Item& item, Ticks first, Ticks last) {
    const auto* const nested = std::get_if<Nested>(&item.content);
    if (!nested || !item.enabled || nested->excerpt.speed == 0)
        return Ticks(0);
    const Kestra::TimeMap map{Ticks(0), nested->excerpt.start, nested->excerpt.speed};
    const auto [start, end] = std::minmax({map.FromSource(Ticks(0)), map.FromSource(nested->stack->duration())});
    return last - first - std::max(Ticks(0), std::min(last, end) - std::max(first, start));
}

void tellWhatIsLacking(OtioContext& context, const std::vector<Item>& items, const PlacedTransition& placed,
                       Track::Kind kind) {
    const auto& [transition, node] = placed;
    const auto tell = [&, where = &node](const Item& item, Ticks lack, const char* text) {
        if (lack <= Ticks(Kestra::TICKS_PER_MILLISECOND))
            return;
        const std::string what = kind == Track::Kind::Video ? " ms its picture stands still, and nothing is heard of it"
                                                            : " ms nothing is heard of it";
        context.warn(*where, "the stack \"" + item.name + "\" " + text +
                                 std::to_string(lack.Value() / Kestra::TICKS_PER_MILLISECOND) + what);
    };
    if (transition.at > 0) {
        const Item& item = items[transition.at - 1];
        tell(item, lackOf(item, item.duration, item.duration + transition.behind),
             "before it has too little beyond the cut: for ");
    }
    if (transition.at < items.size())
        tell(items[transition.at], lackOf(items[transition.at], Ticks(0) - transition.before, Ticks(0)),
             "behind it has too little before the cut: for ");
}

} // namespace

std::vector<Transition> fitTransitions(OtioContext& context, const std::vector<Item>& items,
                                       const std::vector<PlacedTransition>& transitions, Track::Kind kind) {
    std::vector<Transition> fitted;
    for (const auto& [wanted, node] : transitions) {
        const OtioContext::Within within(context, "transition", wanted.name);
        const Transition* const last = fitted.empty() ? nullptr : &fitted.back();
        if (last && last->at == wanted.at) {
            context.warn(node, "it follows another transition and is left out");
            continue;
        }
        // An end of the track has nothing on its other side.
        const Ticks taken = last && last->at + 1 == wanted.at ? last->behind : Ticks(0);
        const Ticks before = wanted.at > 0 ? items[wanted.at - 1].duration - taken : Ticks(0);
        const Ticks behind = wanted.at < items.size() ? items[wanted.at].duration : Ticks(0);
        Transition transition = wanted;
        transition.before = std::min(wanted.before, before);
        transition.behind = std::min(wanted.behind, behind);
        if (transition.before + transition.behind == Ticks(0)) {
            context.warn(node, "there is no time for it, and it is left out");
            continue;
        }
        if (transition.before != wanted.before || transition.behind != wanted.behind)
            context.warn(node, "it is longer than the clips beside it and is shortened to them");
        tellWhatIsLacking(context, items, {transition, node}, kind);
        fitted.push_back(std::move(transition));
    }
    return fitted;
}

} // namespace Timeline
