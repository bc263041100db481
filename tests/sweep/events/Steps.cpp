// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/events/Steps.h"

#include <array>
#include <limits>
#include <ostream>
#include <random>

namespace Sweep {
namespace {

constexpr std::array<const char*, 6> EVENT_NAMES{"started", "progress", "error", "paused", "resumed", "finished"};
constexpr std::array<const char*, 13> STEP_NAMES{"start", "stop",    "tell",  "turn",  "clock", "plan", "fault",
                                                 "react", "destroy", "ready", "taken", "touch", "write"};

class Dice {
public:
    explicit Dice(std::uint64_t seed)
        : random(seed) {}

    /// Below `count`.
    int below(int count) { return static_cast<int>(random() % static_cast<std::uint64_t>(count)); }
    bool oneIn(int count) { return below(count) == 0; }

    /// Of any magnitude, now and then at an end of the range.
    std::int64_t anyNumber() {
        if (oneIn(20))
            return oneIn(2) ? std::numeric_limits<std::int64_t>::max() : std::numeric_limits<std::int64_t>::min();
        const auto number = static_cast<std::int64_t>(random() >> (1 + below(63)));
        return oneIn(4) ? -number : number;
    }
    std::int32_t anySeconds() {
        constexpr std::array<std::int32_t, 10> notable{
            -1, 0, 1, 2, 3, 60, -2, 1'000'000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
        return notable.at(static_cast<std::size_t>(below(10)));
    }

    EngineEvent anyEvent() {
        constexpr std::array<EngineEvent::Kind, 9> kinds{
            EngineEvent::Started,  EngineEvent::Progress, EngineEvent::Progress,
            EngineEvent::Error,    EngineEvent::Finished, EngineEvent::Finished,
            EngineEvent::Finished, EngineEvent::Paused,   EngineEvent::Resumed};
        EngineEvent event;
        event.kind = kinds.at(static_cast<std::size_t>(below(9)));
        event.odd = oneIn(4);
        event.percent = oneIn(10) ? anySeconds() : below(101);
        event.duration = anyNumber();
        event.position = oneIn(3) ? anyNumber() : event.duration / (1 + below(9));
        event.elapsedSeconds = anySeconds();
        event.remainingSeconds = anySeconds();
        return event;
    }
    EngineEvents anyEvents(int most) {
        EngineEvents events(static_cast<std::size_t>(below(most + 1)));
        for (EngineEvent& event : events)
            event = anyEvent();
        return events;
    }
    ProcessorPlan anyPlan() { return {anyEvents(5), anyEvents(3), oneIn(3) ? anyEvents(2) : EngineEvents()}; }

    Step::Kind anyKind(bool streams) {
        const int dice = below(streams ? 130 : 100);
        constexpr std::array<std::pair<int, Step::Kind>, 13> weights{{{8, Step::Start},
                                                                      {14, Step::Stop},
                                                                      {46, Step::Tell},
                                                                      {66, Step::Turn},
                                                                      {74, Step::Clock},
                                                                      {82, Step::Plan},
                                                                      {88, Step::Fault},
                                                                      {98, Step::React},
                                                                      {100, Step::Destroy},
                                                                      {113, Step::Ready},
                                                                      {116, Step::Taken},
                                                                      {123, Step::Touch},
                                                                      {130, Step::Write}}};
        for (const auto& [limit, kind] : weights)
            if (dice < limit)
                return kind;
        return Step::Turn;
    }
    Step anyStep(bool streams, bool nested = false) {
        Step step;
        step.kind = anyKind(streams);
        step.event = anyEvent();
        step.time = anyNumber();
        step.plan = anyPlan();
        step.call = static_cast<Call>(below(7));
        step.odd = oneIn(4);
        step.video = oneIn(2);
        step.value = !oneIn(4);
        if (step.kind == Step::React && nested)
            step.kind = Step::Turn;
        if (step.kind == Step::React)
            step.reaction = std::make_shared<const Step>(anyStep(streams, true));
        return step;
    }

private:
    std::mt19937_64 random;
};

Step ready(bool video) {
    Step step;
    step.kind = Step::Ready;
    step.video = video;
    step.value = true;
    return step;
}

} // namespace

Steps randomSteps(std::uint64_t seed, bool streams) {
    Dice dice(seed);
    Steps steps;
    const int length = 3 + dice.below(30);
    // Most runs begin, so that most steps have something to act on.
    const int begin = dice.below(5);
    for (int at = 0; at < length; ++at) {
        steps.push_back(dice.anyStep(streams));
        if (at != begin)
            continue;
        steps.push_back(streams ? ready(true) : Step{Step::Start, {}, 0, {}, Call::Make, false, false, false, nullptr});
        if (streams) {
            steps.push_back(ready(false));
            steps.emplace_back();
        }
    }
    steps.emplace_back();
    return steps;
}

std::ostream& operator<<(std::ostream& out, const Step& step) {
    out << STEP_NAMES.at(step.kind);
    switch (step.kind) {
    case Step::Tell:
        out << ' ' << EVENT_NAMES.at(step.event.kind);
        break;
    case Step::Clock:
        out << ' ' << step.time;
        break;
    case Step::Fault:
        out << ' ' << static_cast<int>(step.call) << (step.odd ? " oddly" : "");
        break;
    case Step::React:
        out << " with " << *step.reaction;
        break;
    case Step::Ready:
    case Step::Taken:
        out << (step.video ? " video " : " audio ") << step.value;
        break;
    default:
        break;
    }
    return out;
}

} // namespace Sweep
