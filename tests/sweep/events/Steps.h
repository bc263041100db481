// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::Step: what a random script does to a runner or a transcoder, step by step.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <vector>

namespace Sweep {

/// One event of the engine.
struct EngineEvent {
    enum Kind { Started, Progress, Error, Paused, Resumed, Finished };
    Kind kind = Started;
    bool odd = false; ///< an error that is no std::exception
    std::int32_t percent = 0;
    std::int64_t position = 0;
    std::int64_t duration = 0;
    std::int32_t elapsedSeconds = -1;
    std::int32_t remainingSeconds = -1;
};
using EngineEvents = std::vector<EngineEvent>;

/// Calls into the engine that can fail.
enum class Call { Video, Audio, Muxer, Make, SetReceiver, Initialize, Start };

/// What the next processor tells while it is started, stopped and released.
struct ProcessorPlan {
    EngineEvents onStart;
    EngineEvents onStop;
    EngineEvents onRelease;
};

struct Step {
    enum Kind {
        Start,   ///< the runner; of a transcoder nothing
        Stop,    ///< the runner or the transcoder
        Tell,    ///< the processor at hand tells `event`
        Turn,    ///< the event loop runs until nothing is due
        Clock,   ///< shows `time` from now on
        Plan,    ///< the next processor that is made and has no plan yet gets `plan`
        Fault,   ///< the next `call` fails
        React,   ///< `reaction` is done inside the next signal that has none yet
        Destroy, ///< the runner or the transcoder
        Ready,   ///< the model says whether the stream can be read
        Taken,   ///< the model says whether the stream is taken
        Touch,   ///< the model changes something else of the stream
        Write    ///< the output file is there
    };
    Kind kind = Turn;
    EngineEvent event;
    std::int64_t time = 0; ///< nanoseconds
    ProcessorPlan plan;
    Call call = Call::Make;
    bool odd = false;
    bool video = false;
    bool value = false;
    std::shared_ptr<const Step> reaction;
};
using Steps = std::vector<Step>;

/// The same for the same seed, on every machine. With `streams`, what happens to the streams of an export too.
Steps randomSteps(std::uint64_t seed, bool streams);

std::ostream& operator<<(std::ostream& out, const Step& step);

} // namespace Sweep
