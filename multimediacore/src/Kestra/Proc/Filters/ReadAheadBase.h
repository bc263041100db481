// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::ReadAheadBase: what reading ahead has in common for sound and pictures.
#pragma once

#include "Kestra/Conf/IFormatCodec.h"
#include "Kestra/Proc/Filters/ReadAheadQueue.h"
#include "Kestra/Proc/IStream.h"
#include <algorithm>
#include <utility>

namespace Kestra::Proc {

/// The thread starts with the first read. What the source throws is thrown by the read that would have returned the
/// missing piece. Seek waits for the read that is under way; Reset, Interrupt and the destructor interrupt it. One that
/// then does not come back is left with its source: Seek and Reset throw ProcException (Stalled), and reads throw
/// Interrupted. Filter is AudioFilterBase or VideoFilterBase.
template <class Filter>
class ReadAheadBase : public Filter {
public:
    // Nobody reads any more: a read under way need not come to its end. The queue ends its thread.
    ~ReadAheadBase() override {
        if (queue.IsRunning())
            this->source->Interrupt();
    }

    std::int64_t GetDuration() const override { return queue.IsRunning() ? duration : Filter::GetDuration(); }
    std::int64_t GetPosition() const override { return queue.IsRunning() ? position : Filter::GetPosition(); }

    void Seek(std::int64_t time, SeekMode mode) override {
        queue.Stop();
        Filter::Seek(time, mode);
    }

    void Interrupt() override {
        Filter::Interrupt();
        queue.Interrupt();
    }

    void Prepare() override {
        if (!queue.IsRunning())
            Filter::Prepare();
    }

    void Reset() override {
        if (queue.IsRunning()) {
            this->source->Interrupt();
            queue.Interrupt();
        }
        queue.Stop();
        queue.ClearInterrupt();
        Filter::Reset();
    }

protected:
    /// Reads at most `pieces` (at least one) and `bytes` ahead.
    template <class Source>
    ReadAheadBase(Source&& source, const char* threadName, int pieces, std::size_t bytes)
        : Filter(std::forward<Source>(source), "read-ahead")
        , threadName(threadName)
        , queue([held = this->source] { return held->ReadData(); }, Limits(pieces, bytes)) {}

    boost::intrusive_ptr<IData> Pop() {
        if (!queue.IsRunning())
            Start();
        boost::intrusive_ptr<IData> piece = queue.Pop();
        if (piece)
            position = piece->GetTime() + piece->GetDuration();
        return piece;
    }

    /// What the source said before the thread took it over; null before that.
    const Conf::IFormatCodec* FormatAtStart() const { return queue.IsRunning() ? format.get() : nullptr; }

private:
    static QueueLimits Limits(int pieces, std::size_t bytes) {
        QueueLimits limits;
        limits.bytes = bytes;
        limits.pieces = static_cast<std::size_t>(std::max(pieces, 1));
        return limits;
    }

    void Start() {
        Filter::Prepare();
        this->source->GetFormatCodec(format);
        duration = Filter::GetDuration();
        position = Filter::GetPosition();
        queue.Start(threadName);
    }

    const char* const threadName;

    ReadAheadQueue queue;
    boost::intrusive_ptr<Conf::IFormatCodec> format;
    std::int64_t duration = 0;
    std::int64_t position = 0;
};

} // namespace Kestra::Proc
