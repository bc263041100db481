// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::JobState: where a job stands, and where it may go from there.
#pragma once

namespace ExportCore {

/// Which event leads from which state to which: docs/architecture.md, "The states of a job".
enum class JobState {
    Made,          ///< nothing has been done
    OpeningInputs, ///< on another thread; then the project is made from them
    Measuring,     ///< how loud the sound is, on another thread
    MakingOutput,  ///< the private file, on another thread
    Starting,      ///< the transcoder has its orders; the engine has not told that it started
    Running,       ///< it has
    Ending,        ///< it has been asked to stop
    Concluding,    ///< that was the last: the event loop's next turn says what follows
    Checking,      ///< the finished file is read back and moved to its place, on another thread
    BrokenOff,     ///< something hangs, and is being left
    LettingGo,     ///< of the output: a private file that is left over goes, on another thread
    Ended,         ///< finished() is told
};

constexpr bool mayFollow(JobState from, JobState to) {
    switch (from) {
    case JobState::Made:
        return to == JobState::OpeningInputs || to == JobState::Concluding;
    case JobState::OpeningInputs:
        return to == JobState::Measuring || to == JobState::MakingOutput || to == JobState::Concluding ||
               to == JobState::BrokenOff;
    case JobState::Measuring:
        return to == JobState::MakingOutput || to == JobState::Concluding || to == JobState::BrokenOff;
    case JobState::MakingOutput:
        return to == JobState::Starting || to == JobState::Concluding || to == JobState::BrokenOff;
    case JobState::Starting:
        return to == JobState::Running || to == JobState::Concluding || to == JobState::BrokenOff;
    case JobState::Running:
        return to == JobState::Ending || to == JobState::Concluding || to == JobState::BrokenOff;
    case JobState::Ending:
        return to == JobState::Concluding || to == JobState::BrokenOff;
    case JobState::Concluding:
        return to == JobState::Checking || to == JobState::LettingGo;
    case JobState::Checking:
        return to == JobState::BrokenOff || to == JobState::LettingGo;
    case JobState::BrokenOff:
        return to == JobState::LettingGo;
    case JobState::LettingGo:
        return to == JobState::Ended;
    case JobState::Ended:
        return false;
    }
    return false;
}

} // namespace ExportCore
