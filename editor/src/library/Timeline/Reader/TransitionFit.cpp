#include "Timeline/Reader/TransitionFit.h"

#include <algorithm>

namespace Timeline {

using Kestra::Ticks;

std::vector<Transition> fitTransitions(OtioContext& context, const std::vector<Item>& items,
                                       const std::vector<PlacedTransition>& transitions) {
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
        fitted.push_back(std::move(transition));
    }
    return fitted;
}

} // namespace Timeline
