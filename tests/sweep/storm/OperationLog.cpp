// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/storm/OperationLog.h"

#include <algorithm>
#include <istream>
#include <iterator>
#include <ostream>
#include <random>
#include <string>

namespace Sweep {
namespace {

using Random = std::mt19937_64;
using Tells = std::function<bool(const OperationLog&)>;

int below(Random& random, int end) {
    return static_cast<int>(random() % static_cast<std::uint64_t>(end));
}

Kind anyKind(Random& random) {
    // What makes and changes objects more often than what takes views away.
    static constexpr Kind kinds[] = {
        Kind::Own,        Kind::Own,         Kind::Own,        Kind::Own,         Kind::Add,         Kind::Add,
        Kind::Add,        Kind::Change,      Kind::Change,     Kind::Change,      Kind::Change,      Kind::Change,
        Kind::Change,     Kind::ChangeFirst, Kind::Remove,     Kind::Remove,      Kind::Remove,      Kind::RemoveFirst,
        Kind::Observe,    Kind::Observe,     Kind::Observe,    Kind::Forget,      Kind::Forget,      Kind::ObserveNew,
        Kind::ObserveNew, Kind::ObserveAll,  Kind::ObserveAll, Kind::ProcessAdds, Kind::ProcessAdds, Kind::ProcessAdds,
        Kind::Destroy,    Kind::Copy};
    return kinds[below(random, static_cast<int>(std::size(kinds)))];
}

Operation anyOperation(Random& random, int values) {
    const Kind kind = anyKind(random);
    const int view = below(random, VIEWS), item = below(random, ITEMS);
    return {kind, view, item, below(random, values)};
}

/// What a hook does is mostly about what is going on.
Reaction anyReaction(Random& random, const Operation& around, int values) {
    Reaction reaction{below(random, VIEWS), Hook(below(random, HOOKS)), anyOperation(random, values)};
    if (below(random, 3) != 0)
        reaction.operation.item = around.item;
    if (below(random, 5) < 2)
        reaction.view = around.view;
    if (below(random, 7) < 3)
        reaction.operation.view = around.view;
    return reaction;
}

/// Leaves out runs of elements, long ones first, as long as `tells` of what is left.
template <class Element>
void leaveOut(std::vector<Element>& elements, const std::function<bool()>& tells) {
    for (std::size_t length = elements.size(); length > 0; length /= 2) {
        for (std::size_t at = 0; at < elements.size();) {
            const std::vector<Element> before = elements;
            const std::size_t end = std::min(at + length, elements.size());
            elements.erase(elements.begin() + static_cast<std::ptrdiff_t>(at),
                           elements.begin() + static_cast<std::ptrdiff_t>(end));
            if (tells())
                continue;
            elements = before;
            at += length;
        }
    }
}

std::size_t sizeOf(const OperationLog& log) {
    std::size_t size = log.size();
    for (const Step& step : log)
        size += step.reactions.size();
    return size;
}

} // namespace

OperationLog randomLog(std::uint64_t seed, int values) {
    Random random(seed);
    OperationLog log;
    const int steps = 4 + below(random, 32), mostReactions = below(random, 8);
    while (static_cast<int>(log.size()) < steps) {
        Step step{anyOperation(random, values), {}};
        for (int count = below(random, mostReactions + 1); count > 0; --count)
            step.reactions.push_back(anyReaction(random, step.operation, values));
        log.push_back(step);
    }
    return log;
}

OperationLog shortened(OperationLog log, const Tells& tells) {
    const auto tellsStill = [&] { return tells(log); };
    std::size_t before = 0;
    // What one pass leaves out may be what a step left before had waited for.
    do {
        before = sizeOf(log);
        leaveOut(log, tellsStill);
        for (Step& step : log)
            leaveOut(step.reactions, tellsStill);
    } while (sizeOf(log) < before);
    return log;
}

std::ostream& operator<<(std::ostream& out, const OperationLog& log) {
    for (const Step& step : log)
        out << step;
    return out;
}

OperationLog readLog(std::istream& in) {
    OperationLog log;
    for (std::string line; std::getline(in, line);)
        if (!line.empty())
            log.push_back(readStep(line));
    return log;
}

} // namespace Sweep
