// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/events/ModelOfRunner.h"

#include "Types/Time.h"
#include <cmath>
#include <utility>

namespace Sweep {
namespace {

__extension__ using Wide = __int128;

/// Towards zero; nothing for what 64 bits do not hold.
std::optional<Wide> truncated(double value) {
    const double whole = std::trunc(value);
    if (!(std::fabs(whole) < std::ldexp(1.0, 63)) && whole != -std::ldexp(1.0, 63))
        return std::nullopt;
    return static_cast<Wide>(whole);
}

bool fits(Wide value) {
    return value == static_cast<std::int64_t>(value);
}

} // namespace

ModelOfRunner::ModelOfRunner(World& user, const RunKind& runKind, Signals hearer, int& madeSoFar)
    : world(user)
    , kind(runKind)
    , signals(std::move(hearer))
    , made(madeSoFar) {}

void ModelOfRunner::start() {
    isStopped = false;
    pass = 0;
    startTime = clock();
    runPass();
}

void ModelOfRunner::stop() {
    isStopped = true;
    pass = 0;
    if (!processor)
        return;
    world.note("stop");
    tell(processor->plan.onStop, *processor);
    world.note("discard");
}

/// A first pass of two is the video encoder alone.
void ModelOfRunner::makeEngine() const {
    const bool all = !kind.twoPasses || pass == 1;
    if (kind.twoPasses && !kind.video)
        throw std::bad_function_call();
    int streams = 0;
    const auto encoder = [&](bool needed, Call which) {
        if (needed) {
            world.call(which);
            ++streams;
        }
    };
    encoder(kind.video, Call::Video);
    encoder(all && kind.audio, Call::Audio);
    if (all && kind.muxer)
        world.call(Call::Muxer);
    world.note(std::to_string(streams) + " streams" + (all && kind.muxer ? " and a muxer" : ""));
    world.call(Call::Make);
}

void ModelOfRunner::runPass() {
    makeEngine();
    Processor next{++made, world.nextPlan(), false};
    release();
    processor = std::move(next);
    try {
        world.call(Call::SetReceiver);
        processor->hasReceiver = true;
        world.call(Call::Initialize);
        world.call(Call::Start);
        tell(processor->plan.onStart, *processor);
    } catch (const std::exception&) {
        signals.startFailed(std::current_exception());
    }
}

/// It may tell something to its last moment.
void ModelOfRunner::release() {
    if (!processor)
        return;
    const Processor last = *std::exchange(processor, std::nullopt);
    world.note("release " + std::to_string(last.number));
    tell(last.plan.onRelease, last);
}

void ModelOfRunner::destroy() {
    release();
    queue.clear();
}

void ModelOfRunner::tell(const EngineEvents& events, const Processor& by) {
    if (!by.hasReceiver)
        return;
    for (const EngineEvent& event : events) {
        switch (event.kind) {
        case EngineEvent::Started:
            queue.emplace_back([this] { signals.started(); });
            break;
        case EngineEvent::Progress:
            queue.emplace_back([this, event] { progress(event); });
            break;
        case EngineEvent::Error:
            queue.emplace_back([this, event] { signals.processingFailed(fault("the engine", event.odd)); });
            break;
        case EngineEvent::Finished:
            queue.emplace_back([this] { finished(); });
            break;
        case EngineEvent::Paused:
        case EngineEvent::Resumed:
            break;
        }
    }
}

void ModelOfRunner::tell(const EngineEvent& event) {
    if (processor)
        tell(EngineEvents{event}, *processor);
}

bool ModelOfRunner::hearOne() {
    if (queue.empty())
        return false;
    const auto event = std::move(queue.front());
    queue.pop_front();
    event();
    return true;
}

void ModelOfRunner::finished() {
    ++pass;
    if (isStopped || pass >= passes())
        signals.stopped();
    else
        runPass();
}

void ModelOfRunner::progress(const EngineEvent& event) {
    if (isStopped)
        return;
    const Wide percent = (Wide(pass) * 100 + event.percent) / passes();
    signals.progressChanged(static_cast<int>(percent), remaining(event));
}

std::int64_t ModelOfRunner::remaining(const EngineEvent& event) const {
    if (event.elapsedSeconds == -1 || Wide(event.elapsedSeconds) * 1000 < 2000)
        return -1;
    if (pass != passes() - 1)
        return estimate(event);
    return event.remainingSeconds == -1 ? -1 : std::int64_t{event.remainingSeconds} * 1000;
}

/// Unknown where a number is divided by nothing or has no place.
std::int64_t ModelOfRunner::estimate(const EngineEvent& event) const {
    const auto duration = static_cast<double>(Types::fromAvTime(event.duration).count());
    const auto total = truncated(passes() * duration);
    const auto before = truncated(pass * duration);
    if (!total || !before)
        return -1;
    const Wide done = *before + Types::fromAvTime(event.position).count();
    const Wide left = *total - done;
    if (done == 0 || !fits(done) || !fits(left))
        return -1;
    const auto elapsed = static_cast<double>(clock() - startTime);
    const auto result = truncated(elapsed / static_cast<double>(done) * static_cast<double>(left));
    return result ? static_cast<std::int64_t>(*result) : -1;
}

} // namespace Sweep
