// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::World: what a script is played on; the real thing and the model of it are one each.
#pragma once

#include "sweep/events/Steps.h"
#include <deque>
#include <exception>
#include <map>
#include <string>
#include <vector>

namespace Sweep {

/// Everything that can be seen from outside, in order: calls into the engine, signals, exceptions that were let out.
using Trace = std::vector<std::string>;

/// An exception of a type that is not the standard library's.
struct OddFault {};
/// "fault in video" and so on; the engine's own errors are "fault in the engine".
std::exception_ptr fault(const std::string& place, bool odd);
/// Its words, "odd" for an odd one.
std::string wordsOf(const std::exception_ptr& error);
/// As it stands in a trace.
std::string progressText(int percent, std::int64_t remaining);

/// Keeps what both sides need alike: the trace, faults and plans to come, reactions to signals, and the time.
class World {
public:
    virtual ~World() = default;

    void play(const Step& step);
    const Trace& trace() const { return seen; }

    void note(const std::string& what) { seen.push_back(what); }
    /// A call into the engine: noted, and failed when that is due.
    void call(Call which);
    /// A signal: noted, and reacted to when that is due.
    void signal(const std::string& what);
    ProcessorPlan nextPlan();
    std::int64_t now() const { return time; }

protected:
    World() = default;

    virtual void start() = 0;
    virtual void stop() = 0;
    virtual void tell(const EngineEvent& event) = 0;
    virtual void turn() = 0;
    virtual void destroy() = 0;
    virtual void setReady(bool video, bool value) = 0;
    virtual void setTaken(bool video, bool value) = 0;
    virtual void touch(bool video) = 0;
    virtual void write() = 0;

private:
    Trace seen;
    std::int64_t time = 0;
    std::deque<ProcessorPlan> plans;
    std::map<Call, std::deque<bool>> faults;
    std::deque<std::shared_ptr<const Step>> reactions;
};

} // namespace Sweep
