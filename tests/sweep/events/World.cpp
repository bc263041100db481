// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/events/World.h"

#include <array>
#include <stdexcept>

namespace Sweep {
namespace {

constexpr std::array<const char*, 7> CALL_NAMES{"video", "audio", "muxer", "make", "receiver", "initialize", "start"};

} // namespace

std::exception_ptr fault(const std::string& place, bool odd) {
    return odd ? std::make_exception_ptr(OddFault()) : std::make_exception_ptr(std::runtime_error("fault in " + place));
}

std::string wordsOf(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& exception) {
        return exception.what();
    } catch (...) {
        return "odd";
    }
}

std::string progressText(int percent, std::int64_t remaining) {
    return "progress " + std::to_string(percent) + ' ' + std::to_string(remaining);
}

void World::play(const Step& step) {
    switch (step.kind) {
    case Step::Start:
        return start();
    case Step::Stop:
        return stop();
    case Step::Tell:
        return tell(step.event);
    case Step::Turn:
        return turn();
    case Step::Clock:
        time = step.time;
        return;
    case Step::Plan:
        return plans.push_back(step.plan);
    case Step::Fault:
        return faults[step.call].push_back(step.odd);
    case Step::React:
        return reactions.push_back(step.reaction);
    case Step::Destroy:
        return destroy();
    case Step::Ready:
        return setReady(step.video, step.value);
    case Step::Taken:
        return setTaken(step.video, step.value);
    case Step::Touch:
        return touch(step.video);
    case Step::Write:
        return write();
    }
}

void World::call(Call which) {
    const char* name = CALL_NAMES.at(static_cast<std::size_t>(which));
    note(name);
    auto& due = faults[which];
    if (due.empty())
        return;
    const bool odd = due.front();
    due.pop_front();
    std::rethrow_exception(fault(name, odd));
}

void World::signal(const std::string& what) {
    note("signal " + what);
    if (reactions.empty())
        return;
    const auto reaction = reactions.front();
    reactions.pop_front();
    play(*reaction);
}

ProcessorPlan World::nextPlan() {
    if (plans.empty())
        return {{}, {{EngineEvent::Finished, false, 0, 0, 0, -1, -1}}, {}};
    const ProcessorPlan plan = plans.front();
    plans.pop_front();
    return plan;
}

} // namespace Sweep
