// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::ProcessingRun: one run, from its encoders to its last event, on the thread that feeds the muxer.
#pragma once

#include "Kestra/Proc/IMuxer.h"
#include "Kestra/Proc/Processor/EncoderThread.h"
#include "Kestra/Proc/Processor/EventSink.h"
#include "Kestra/Proc/Processor/ProgressMeter.h"
#include <atomic>
#include <memory>
#include <optional>
#include <vector>

namespace Kestra::Proc {

/// Shared by the processor and the thread: it lives until the later of both lets go, since the last release of the
/// processor may happen inside one of the run's own events, and since a thread that hangs in a foreign call is left.
class ProcessingRun : public std::enable_shared_from_this<ProcessingRun> {
public:
    ProcessingRun(const std::vector<boost::intrusive_ptr<IStreamRaw>>& streams, boost::intrusive_ptr<IMuxer> muxer);

    /// The body of the thread: returns when every event has been reported and every encoder's thread has ended, or has
    /// been left because it does not come out of its stream.
    void Run();
    /// Instead of Run, when the run cannot be: reports `cause` on the calling thread.
    void Refuse(std::exception_ptr cause);

    /// Resets the streams; what one throws fails the run. Before Run.
    void ResetStreams();
    void Stop();
    void Discard();
    /// Ends everything without another event. Called last by the processor's user, possibly from inside an event.
    void Abandon();
    /// Whether the calling thread is this run's.
    bool IsOwnThread() const noexcept { return state->IsOwnThread(); }
    /// Does what Run has still to do but for returning; only on the thread that executes Run, inside an event.
    void FinishInsideEvent();

    EventSink& GetEvents() { return events; }

private:
    void Export();
    /// After an ending: writes the rest if the output of a stopped run is wanted; false when it is not.
    bool KeepWhatIsQueued();
    void LaunchEncoders();
    static void OnEncoderFailure(const std::weak_ptr<ProcessingRun>& run, std::exception_ptr cause);
    void OpenMuxer();
    void BeginProgress();
    /// Writes packets in the order of their decode times while the run's ending is `during`; ends with the last packet.
    void WritePackets(Ending during);
    std::optional<std::size_t> FindNextTrack();
    void WriteFrom(std::size_t track);
    void ReportProgress();
    void FinishMuxer();
    void AbortMuxer() noexcept;
    void Conclude();
    void InterruptEncoders() noexcept;
    void JoinEncoders();

    const std::vector<boost::intrusive_ptr<IStreamRaw>> streams;
    const boost::intrusive_ptr<IMuxer> muxer;
    const std::shared_ptr<RunState> state = std::make_shared<RunState>();
    EventSink events;
    /// Never changes after construction, so that any thread may interrupt.
    std::vector<std::shared_ptr<EncoderThread>> encoders;
    std::atomic<bool> interrupted{false};

    // Used by the muxer's thread alone.
    std::vector<int> muxerIndices;
    std::optional<ProgressMeter> progress;
    bool muxerInUse = false;
};

} // namespace Kestra::Proc
